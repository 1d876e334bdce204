#!/usr/bin/env python3
"""Dates on random days, moved by random offsets, as `ovaline date` writes them, against another calendar.

usage: dates.py PROGRAM
"""
import datetime
import random
import subprocess
import sys

CASES = 300
STANDARD = "%a %A %b %B %d %H %I %j %m %M %p %S %U %w %W %X %%"
MONTHS = ("JA A A", "FE B B", "MR C C", "AL D D", "MA E E", "JN F F", "JL G G", "AU H H", "SE J I", "OC K J", "NO L K",
          "DE M L")
PATTERN = STANDARD + "|%C %L %l %T %V|%Y %#Y %y %#y %e|%x|%c|%#x|%#c|%+{years}Y %+{years}e %+{years}#x|%+{years}V"


def ovaline(pattern, at, offset):
    command = [sys.argv[1], "date", pattern, "--at", at, f"--offset={offset}"]
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout.split("\n")[0]


def by_datetime(at, offset, years):
    try:
        time = at + datetime.timedelta(days=offset)
    except OverflowError:
        return "Invalid DateTime"
    if time.year < 100:
        return "Invalid DateTime"
    week = time.isocalendar()[1]
    short = f"{time.month:02}/{time.day:02}/{time.year % 100:02}"
    clock = time.strftime("%H:%M:%S")
    names = f"{time:%A}, {time:%B} {time.day}, "
    year = time.year + years
    return "|".join([
        time.strftime(STANDARD),
        f"{MONTHS[time.month - 1]} {'ABCDEF'[time.hour // 4]} {week:02}",
        f"{time.year:04} {time.year} {time.year % 100:02} {time.year % 100} {time.year % 10}",
        short, f"{short} {clock}", f"{names}{time.year:04}", f"{names}{time.year:04}, {clock}",
        f"{year:04} {year % 10} {names}{year:04}", f"{week:02}",
    ])


def main():
    source = random.Random(20261117)
    first = datetime.datetime(100, 1, 1)
    span = int((datetime.datetime(9999, 12, 31) - first).total_seconds())
    wrong = invalid = 0
    for _ in range(CASES):
        at = first + datetime.timedelta(seconds=source.randrange(span))
        offset = source.choice([0, source.randint(-400, 400), source.randint(-3000000, 3000000)])
        years = source.choice([0, 1, 2, 99, 7000])
        expected = by_datetime(at, offset, years)
        invalid += expected == "Invalid DateTime"
        written = ovaline(PATTERN.format(years=years), at.isoformat(), offset)
        if written != expected:
            wrong += 1
            print(f"FAILED: {at.isoformat()} {offset:+} days\n  written  {written}\n  expected {expected}")
    print(f"{CASES - wrong} dates agree, {invalid} of them beyond the calendar, {wrong} differ")
    return 0 if not wrong and 0 < invalid < CASES / 2 else 1


if __name__ == "__main__":
    sys.exit(main())
