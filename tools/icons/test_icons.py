"""Tests of the drawn icons; run in tools/ with `python3 -m unittest icons.test_icons`."""

import re
import unittest
import xml.etree.ElementTree as tree

from .paint import document
from .table import icons

ALLOWED = {"svg", "defs", "linearGradient", "stop", "g", "path"}


def drawn():
    return {icon.name: document(icon.draw(*icon.arguments), icon.grid, icon.size) for icon in icons()}


def numbers(text):
    return [float(value) for value in re.findall(r"-?(?:\d+\.?\d*|\.\d+)", text)]


class Icons(unittest.TestCase):
    def test_small_renderers_can_draw_everything(self):
        """Fault: a gradient that is used but not defined, or an element a Tiny renderer leaves out, draws nothing."""
        for name, text in drawn().items():
            root = tree.fromstring(text)
            used = {element.tag.rpartition("}")[2] for element in root.iter()}
            self.assertLessEqual(used, ALLOWED, name)
            made = {element.get("id") for element in root.iter() if element.get("id")}
            self.assertEqual(set(re.findall(r"url\(#(\w+)\)", text)), made, name)

    def test_path_data_is_well_formed(self):
        """Fault: a path with a missing number is cut off there without a word."""
        needs = {"m": 2, "l": 2, "h": 1, "v": 1, "c": 6, "s": 4, "q": 4, "a": 7, "z": 0}
        for name, text in drawn().items():
            for data in re.findall(r' d="([^"]*)"', text):
                self.assertRegex(data, r"^[Mm]", name)
                for command, rest in re.findall(r"([A-Za-z])([^A-Za-z]*)", data):
                    self.assertIn(command.lower(), needs, name)
                    count, need = len(numbers(rest)), needs[command.lower()]
                    self.assertTrue(count == 0 if need == 0 else count and count % need == 0, f"{name}: {command}{rest}")

    def test_lists_are_whole_and_their_pictures_differ(self):
        """Fault: a list one picture short shifts every later number; two equal signs can't be told apart."""
        texts = drawn()
        sizes = {"mode": 9, "recent": 8, "message": 12, "mark": 30, "goto": 63, "macro": 2, "tree": 3, "zip": 2}
        for name, size in sizes.items():
            rows = [texts[f"{name}_{i:02d}"] for i in range(1, size + 1)]
            self.assertNotIn(f"{name}_{size + 1:02d}", texts)
            self.assertEqual(len(set(rows)), size, name)

    def test_marks_run_in_a_closed_round(self):
        """Fault: a jump of the dashes from the tenth picture to the first."""
        texts = drawn()
        offsets = [numbers(re.search(r'dashoffset="([^"]+)"', texts[f"mark_{i:02d}"])[1])[0] for i in range(1, 11)]
        steps = {(offsets[i] - offsets[(i + 1) % 10]) % 20 for i in range(10)}
        self.assertEqual(steps, {2})


if __name__ == "__main__":
    unittest.main()
