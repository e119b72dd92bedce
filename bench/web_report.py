"""What `scripts/bench --web` measured, as results/web.csv and results/web.md."""

import csv
import statistics

NAMES = {"tablio": "`<tablio-grid>`", "ag": "AG Grid Community", "tabulator": "Tabulator"}
WORKS = [
    ("brotli KB", "size with Brotli, KB"),
    ("start ms", "from the page's request to the first 1,000 rows on the screen, ms"),
    ("created and filled ms", "created, filled and painted, ms"),
    ("memory MB", "JavaScript heap and module memory, MB"),
    ("scroll ms", "main thread for a turn of the wheel by three rows, ms"),
    ("key ms", "main thread for a typed key, commits included, ms"),
    ("key in listeners ms", "of that in listeners, the middle key, ms"),
    ("core and events ms", "of that in the core and in events, the middle key, ms"),
]
# Figure, against whom (None: as it is), at most.
TARGETS = [
    ("brotli KB", "ag", 0.35),
    ("brotli KB", None, 130),
    ("created and filled ms", "ag", 0.75),
    ("created and filled ms", "tabulator", 0.85),
    ("scroll ms", "ag", 0.5),
    ("scroll ms", "tabulator", 0.4),
    ("memory MB", "ag", 0.65),
    ("key ms", "ag", 0.5),
    ("start ms", "ag", 1),
    ("core and events ms", None, 0.05),
]


def shown(value):
    return f"{value:.0f}" if value >= 100 else f"{value:.3g}"


def table(header, rows, alignments):
    lines = ["| " + " | ".join(header) + " |", "|" + "|".join(alignments) + "|"]
    lines += ["| " + " | ".join(row) + " |" for row in rows]
    return "\n".join(lines) + "\n"


def write(lines, circumstances, directory):
    """Of lines `peer,figure,round 1,round 2,…`."""
    rounds = {(line[0], line[1]): [float(value) for value in line[2:]] for line in lines}
    medians = {key: statistics.median(values) for key, values in rounds.items()}
    with open(directory / "web.csv", "w", newline="", encoding="utf-8") as file:
        writer = csv.writer(file, lineterminator="\n")
        writer.writerow(["peer", "figure", "rounds"])
        for (peer, figure), values in rounds.items():
            writer.writerow([peer, figure, *(f"{value:.4f}" for value in values)])

    def cell(peer, figure):
        if (peer, figure) not in medians:
            return ""
        value, values = medians[peer, figure], rounds[peer, figure]
        spread = "" if min(values) == max(values) else f" ({shown(min(values))} to {shown(max(values))})"
        return shown(value) + spread

    targets = []
    for figure, peer, most in TARGETS:
        own = medians["tablio", figure]
        value = own / medians[peer, figure] if peer else own
        limit = f"≤ {most} of {NAMES[peer]}" if peer else f"≤ {most}"
        targets.append([dict(WORKS)[figure], limit, f"{value:.3g}", "yes" if value <= most else "no"])
    works = [[text, *(cell(peer, figure) for peer in NAMES)] for figure, text in WORKS]
    (directory / "web.md").write_text(
        "# What was measured in a browser\n\n"
        "Written by `scripts/bench --web`: 32,766 rows × 20 columns, ten of them numbers, in a page of\n"
        "1,200 × 800; how it is done stands in [the README](../README.md). Every round is in\n"
        f"[web.csv](web.csv). {circumstances}\n\n"
        "## Targets\n\n"
        + table(["figure", "target", "measured", "reached"], targets, ["---", "---", "---:", "---"])
        + "\n## Figures\n\nMedians of five rounds, and the least and the most.\n\n"
        + table(["", *NAMES.values()], works, ["---", "---:", "---:", "---:"]),
        encoding="utf-8",
    )
