#!/usr/bin/env python3
"""Prints the figures of a benchmark run as one table and keeps them for the next run.

Reads lines of "row, column, value, unit", separated by tabs, from standard input (Results.h). Beside
them stand, from results/reference.tsv, what the row took before it was worked on, what a widely used
parser takes for it ("peer": iptv-playlist-parser 0.15.2 under Node.js, parsing only), and the value
to stay under; and from results/latest.tsv what the run before this one took. "x before" and
"x floor" say how many times the figure of today fits into that one, and contains the other.

    table.py [--keep]     --keep replaces results/latest.tsv by this run
"""

import csv
import pathlib
import sys

RESULTS = pathlib.Path(__file__).parent / "results"
COLUMNS = ["before", "peer", "plain", "floor", "last", "CPU", "now", "bar", "x before", "x floor"]


def read_table(path):
    if not path.exists():
        return {}
    with path.open(encoding="utf-8") as file:
        return {line["row"]: line for line in csv.DictReader(file, delimiter="\t")}


def read_run(lines):
    """The rows in the order of the run, each a dictionary of its columns and its unit."""
    rows = {}
    for line in lines:
        fields = line.rstrip("\n").split("\t")
        if len(fields) == 4:
            name, column, value, unit = fields
            rows.setdefault(name, {"unit": unit})[column] = float(value)
    return rows


def number(text):
    return float(text) if text else None


def add_comparisons(rows):
    reference = read_table(RESULTS / "reference.tsv")
    latest = read_table(RESULTS / "latest.tsv")
    for name, row in rows.items():
        for column in ("before", "peer", "bar"):
            row[column] = number(reference.get(name, {}).get(column))
        row["last"] = number(latest.get(name, {}).get("now"))
        if row["before"] and row.get("now"):
            row["x before"] = row["before"] / row["now"]
        if row.get("floor") and row.get("now"):
            row["x floor"] = row["now"] / row["floor"]


def cell(row, column):
    value = row.get(column)
    if value is None:
        return ""
    if column.startswith("x "):
        return f"{value:.1f}"
    over = column == "now" and row["bar"] is not None and value > row["bar"]
    return f"{value:,.1f}{' !' if over else ''}"


def print_table(rows):
    width = max(len(name) for name in rows) + 8
    print("row".ljust(width) + "".join(column.rjust(11) for column in COLUMNS))
    for name, row in rows.items():
        title = f"{name} ({row['unit']})".ljust(width)
        print(title + "".join(cell(row, column).rjust(11) for column in COLUMNS))
    missed = [name for name, row in rows.items() if cell(row, "now").endswith("!")]
    print(f"\n{len(missed)} rows are over their bar (!)." if missed else "\nNo row is over its bar.")


def keep(rows):
    with (RESULTS / "latest.tsv").open("w", encoding="utf-8") as file:
        file.write("row\tnow\tunit\n")
        for name, row in rows.items():
            file.write(f"{name}\t{row.get('now', '')}\t{row['unit']}\n")


def main():
    rows = read_run(sys.stdin)
    if not rows:
        sys.exit("table.py: no figures")
    add_comparisons(rows)
    print_table(rows)
    if "--keep" in sys.argv[1:]:
        keep(rows)


if __name__ == "__main__":
    main()
