"""Texts of ini tables: sections, numbered word lists, and a reader for the checks."""

NO_WORDS = "*:none:*"  # stands in a list that has no words, so that no list is ever empty


def section(name, pairs, remark=()):
    """One section as text. `pairs` are (key, value), or plain texts that become remark lines between the keys."""
    lines = [f"; {line}" for line in remark] + [f"[{name}]"]
    for pair in pairs:
        lines.append(f"; {pair}" if isinstance(pair, str) else f"{pair[0]}={pair[1]}")
    return "\n".join(lines) + "\n"


def word_list(name, words, remark=(), count_key="Count"):
    """A section of numbered words with their count in front; an empty list holds the one word NO_WORDS."""
    words = list(words) or [NO_WORDS]
    pairs = [(count_key, len(words))] + [(number, word) for number, word in enumerate(words, 1)]
    return section(name, pairs, remark)


def unique(words):
    """The words in their order, each once."""
    return list(dict.fromkeys(words))


def save(path, *sections):
    """UTF-8, line feeds, an empty line between sections."""
    path.write_text("\n".join(sections), encoding="utf-8", newline="\n")


def read(path):
    """An ini file as {section: [(key, value), ...]}, in file order, doubles kept."""
    sections, current = {}, None
    for number, line in enumerate(path.read_text(encoding="utf-8").split("\n"), 1):
        if not line or line.startswith(";"):
            continue
        if line.startswith("[") and line.endswith("]") and "=" not in line:
            if line[1:-1] in sections:
                raise ValueError(f"{path.name}, line {number}: section {line} stands twice")
            current = sections.setdefault(line[1:-1], [])
            continue
        key, equals, value = line.partition("=")
        if not equals or current is None:
            raise ValueError(f"{path.name}, line {number}: neither section nor key: {line}")
        current.append((key, value))
    return sections
