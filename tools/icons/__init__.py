"""The drawings of the program's icons, one subject a module; table.py joins them."""
