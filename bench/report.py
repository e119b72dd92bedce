"""Tables and curves of what `scripts/bench` has measured: results.csv with every figure, results.md
with the tables, growth.svg with time against rows. It measures nothing."""

import csv
import math

NAMES = {
    "core": "Tablio core",
    "tablio": "Tablio widget",
    "qtablewidget": "QTableWidget",
    "qtableview": "QTableView",
    "wxgrid": "wxGrid",
}
MEMORY = ["bytes a cell", "bytes a cell striped"]
START = "start to first frame"
CURVES = [
    "fill",
    "fill numbers",
    "remove at top",
    "insert at middle",
    "clear numbered and striped",
    "find duplicate",
    "count data",
    "full frame",
    "scroll by a row",
    "scroll to the end",
    "one changed cell",
    "key to pixel",
]
COLOURS = {"core": "#1b7f5c", "tablio": "#1f5fbf", "qtablewidget": "#c2571a"}


def shown(microseconds):
    for size, unit in [(1e6, "s"), (1e3, "ms")]:
        if microseconds >= size:
            return f"{microseconds / size:.3g} {unit}"
    return f"{microseconds:.3g} µs"


class Table:
    def __init__(self, figures, present):
        self.figures = figures
        self.present = present

    def value(self, peer, work, size, index=0):
        numbers = self.figures.get((peer, work, size))
        return numbers[index] if numbers and index < len(numbers) else None

    def works(self, size):
        """In the order in which the programs print them."""
        found = []
        for _, work, at in self.figures:
            if at == size and work not in found and work not in MEMORY and work != START:
                found.append(work)
        return found

    def lines(self, size, peers):
        """A work a line; behind the time of each peer its ratio to ours, where both are known."""
        head = ["work", *(NAMES[peer] for peer in peers)]
        yield "| " + " | ".join(head) + " |"
        yield "|---|" + "---:|" * len(peers)
        for work in self.works(size):
            times = {peer: self.value(peer, work, size) for peer in peers}
            ours = times.get("tablio") or times.get("core")
            cells = []
            for peer in peers:
                if times[peer] is None:
                    cells.append("")
                elif peer in ("core", "tablio") or not ours or work.startswith("floor"):
                    cells.append(shown(times[peer]))
                else:
                    cells.append(f"{shown(times[peer])} ({times[peer] / ours:.3g} ×)")
            yield f"| {work} | " + " | ".join(cells) + " |"


def verdicts(table, size):
    """Each target with what was measured for it: work, target, measured, reached or not."""

    def value(peer, work, index=0):
        return table.value(peer, work, size, index)

    def ratio(work, peer, ours="tablio"):
        other, own = value(peer, work), value(ours, work)
        return other / own if other and own else None

    rows = []

    def add(work, target, measured, reached):
        if measured is not None:
            rows.append((work, target, measured, "yes" if reached else "no"))

    for ours in ("core", "tablio"):
        for peer, work, how in [("qtablewidget", "fill", ""),
                                ("wxgrid", "fill outside a batch", " outside a batch"),
                                ("wxgrid", "fill", " in a batch")]:
            other, own = value(peer, work), value(ours, "fill")
            if other and own:
                add(f"fill, {NAMES[ours]}", f"≥ 12 × faster than {NAMES[peer]}{how}",
                    f"{other / own:.1f} ×", other / own >= 12)
    plain, striped = value("tablio", MEMORY[0]), value("tablio", MEMORY[1])
    if plain and striped:
        add("memory of a short cell", "≤ 32 bytes", f"{plain:.1f}", plain <= 32)
        add("stripes", "≤ 4 bytes a cell more", f"{striped - plain:.1f}", striped - plain <= 4)
    for work in ("remove", "insert"):
        names = [f"{work} at {place}" for place in ("top", "middle", "end")]
        typical = [value("tablio", name) for name in names]
        longest = [value("tablio", name, 2) for name in names]
        if all(typical):
            add(f"{work} a row anywhere", "≤ 8 ms, never over 16 ms",
                f"{shown(max(typical))}, longest {shown(max(longest))}",
                max(typical) <= 8000 and max(longest) <= 16000)
    for work in ("find duplicate", "count data"):
        for ours in ("core", "tablio"):
            if value(ours, work):
                add(f"{work}, {NAMES[ours]}", "≤ 2 ms", shown(value(ours, work)),
                    value(ours, work) <= 2000)
    for work in ("clear", "clear numbered and striped"):
        times = ratio(work, "qtablewidget")
        if times:
            add(work, "≤ 1/5 of QTableWidget", f"1/{times:.0f}", times >= 5)
    times = ratio("full frame", "qtablewidget")
    if times:
        add("full frame", "≤ 1/2 of QTableWidget", f"1/{times:.1f}", times >= 2)
    for work in ("scroll by a row", "one changed cell"):
        times = ratio(work, "qtablewidget")
        if times:
            add(work, "no slower than QTableWidget", f"1/{times:.1f}", times >= 1)
    key = value("core", "key in the core", 1)
    if key:
        add("a key in the core, 99th percentile", "< 50 µs", shown(key), key < 50)
    own, other = (table.value(peer, START, (1000, 20)) for peer in ("tablio", "qtablewidget"))
    if own and other:
        add("first frame of 1,000 rows", "no later than QTableWidget's program",
            f"{own:.1f} ms against {other:.1f} ms", own <= other)
    return rows


def curves(table, sizes):
    """Small charts, time against rows, both logarithmic: a line that climbs like the frame's
    diagonal grows with the rows, a flat one does not care."""
    width, height, margin, across = 310, 200, 48, 3
    parts = []
    for number, work in enumerate(CURVES):
        lines = {
            peer: [(size[0], table.value(peer, work, size)) for size in sizes
                   if table.value(peer, work, size)]
            for peer in COLOURS
        }
        values = [time for line in lines.values() for _, time in line]
        if not values:
            continue
        low, high = math.floor(math.log10(min(values))), math.ceil(math.log10(max(values)))
        high = max(high, low + 1)
        left = number % across * width + margin
        top = number // across * height + 30
        inner_width, inner_height = width - margin - 28, height - 62
        first, last = math.log10(sizes[0][0]), math.log10(sizes[-1][0])

        def place(rows, time):
            x = left + (math.log10(rows) - first) / (last - first) * inner_width
            y = top + (high - math.log10(time)) / (high - low) * inner_height
            return f"{x:.1f},{y:.1f}"

        parts.append(f'<text x="{left}" y="{top - 8}" font-weight="bold">{work}</text>')
        for power in range(low, high + 1):
            y = top + (high - power) / (high - low) * inner_height
            parts.append(f'<path d="M{left} {y:.1f}h{inner_width}" stroke="#ddd"/>')
            parts.append(f'<text x="{left - 4}" y="{y + 4:.1f}" text-anchor="end">'
                         f'{shown(10 ** power)}</text>')
        for size in sizes:
            x = place(size[0], 10 ** low).split(",")[0]
            parts.append(f'<text x="{x}" y="{top + inner_height + 14}" text-anchor="middle">'
                         f'{size[0]}</text>')
        for peer, line in lines.items():
            points = " ".join(place(*point) for point in line)
            parts.append(f'<polyline points="{points}" fill="none" stroke="{COLOURS[peer]}" '
                         'stroke-width="2"/>')
    down = (len(CURVES) + across - 1) // across
    legend = "".join(
        f'<text x="{margin + 130 * place}" y="{down * height + 14}" fill="{colour}" '
        f'font-weight="bold">{NAMES[peer]}</text>'
        for place, (peer, colour) in enumerate(COLOURS.items())
    )
    return (
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{across * width}" '
        f'height="{down * height + 26}" font-family="sans-serif" font-size="10">\n'
        '<rect width="100%" height="100%" fill="white"/>\n'
        + "\n".join([*parts, legend]) + "\n</svg>\n"
    )


def write(figures, present, main, sizes, wide, circumstances, directory):
    table = Table(figures, present)
    with open(directory / "results.csv", "w", newline="") as file:
        writer = csv.writer(file, lineterminator="\n")
        writer.writerow(["peer", "work", "rows", "cols", "median", "p99", "longest", "count"])
        for (peer, work, size), numbers in figures.items():
            writer.writerow([peer, work, *size, *(f"{number:.2f}" for number in numbers)])

    text = [
        "# What was measured",
        "",
        "Written by `scripts/bench`; what the works are and what limits them stands in",
        "[the README](../README.md). Every figure is in [results.csv](results.csv), in microseconds",
        f"(memory in bytes, start in milliseconds). Measured {circumstances}.",
        "",
        f"## Targets, at {main[0]:,} × {main[1]}",
        "",
        "| work | target | measured | reached |",
        "|---|---|---:|---|",
        *(f"| {' | '.join(row)} |" for row in verdicts(table, main)),
    ]
    for peer in NAMES:
        if peer not in present:
            text += ["", f"{NAMES[peer]} was skipped: it is not installed here."]
    for size, peers in [(main, present), *((size, present) for size in sizes),
                        (wide, ["core", "tablio"])]:
        text += [
            "",
            f"## {size[0]:,} rows × {size[1]} columns",
            "",
            "Medians; in brackets how many times as long as the Tablio widget.",
            "",
            *table.lines(size, [peer for peer in peers if peer in present]),
        ]
    text += ["", "## Memory and start", "", "| | " + " | ".join(NAMES[p] for p in present) + " |",
             "|---|" + "---:|" * len(present)]
    for work, size, unit in [(MEMORY[0], main, "bytes"), (MEMORY[1], main, "bytes"),
                             (START, (1000, 20), "ms")]:
        values = (table.value(peer, work, size) for peer in present)
        text.append(f"| {work} | " + " | ".join(f"{v:.1f} {unit}" if v else "" for v in values)
                    + " |")
    text += ["", "## Growth", "", "![time against rows](growth.svg)", ""]
    (directory / "results.md").write_text("\n".join(text))
    curve_sizes = sorted({size for _, _, size in figures if size[1] == main[1]
                          and size != wide and size[0] in (1000, 4000, 16000, main[0])})
    (directory / "growth.svg").write_text(curves(table, curve_sizes))
