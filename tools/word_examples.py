"""The examples of word_examples.txt, as the help shows them."""

import html
from collections import namedtuple
from pathlib import Path

Example = namedtuple("Example", "words on answers files lines gives tells needs")

FILE = Path(__file__).resolve().parent / "word_examples.txt"
KEYS = {"on": "on", "answer": "answers", "file": "files", "gives": "gives", "tells": "tells", "needs": "needs"}


def examples():
    """{word: its example}. A word has one."""
    found = {}
    for block in FILE.read_text(encoding="utf-8").split("\n\n"):
        lines = [line for line in block.splitlines() if not line.startswith("#")]
        if not lines:
            continue
        one = Example([], [], [], [], [], [], [], [])
        for line in lines:
            key, _, rest = line.partition(" ")
            if line.startswith("    "):
                one.lines.append(line[4:])
            elif key == "word":
                one.words.extend(rest.split())
            else:
                getattr(one, KEYS[key]).append(rest)
        for word in one.words:
            if word in found:
                raise SystemExit("%s has two examples" % word)
            found[word] = one
    return found


def lined(text):
    return html.escape("\n".join(text).replace("\\b", ""))


def shown(example):
    """The example as pieces of a page."""
    said = []
    if example.files:
        said.append("<p>Beside it lies %s.</p>" % " and ".join(
            "<code>%s</code> with <code>%s</code>" % tuple(html.escape(part) for part in file.split(" ", 1))
            for file in example.files))
    if example.on:
        said.append("<p>On the text</p>\n<pre>%s</pre>" % lined(example.on))
    said.append("<pre>%s</pre>" % lined(example.lines))
    answers = [answer for answer in example.answers if answer]
    if answers:
        said.append("<p>answered with %s</p>" % ", ".join("<code>%s</code>" % html.escape(a) for a in answers))
    if example.needs:
        said.append('<p class="faint">It needs %s.</p>' % html.escape(example.needs[0]))
    elif len(example.gives) == 1:
        said.append('<p class="gives">gives <code>%s</code></p>' % lined(example.gives))
    else:
        said.append('<p class="gives">gives</p>\n<pre>%s</pre>' % lined(example.gives))
    return said
