"""What the order must hold by what was typed: the lines, and every state that the file has gone
through if each finished cell is saved at once. A file that is saved more seldom skips some."""
import sqlite3

COLUMNS = ["article", "description", "quantity", "price", "unit", "delivery", "delivered"]
BLANK = dict(article="", description="", quantity=0, price=0, unit="", delivery=None, delivered=0)


def in_file(file):
    """The lines as they are saved, by row."""
    with sqlite3.connect(f"file:{file}?mode=rw", uri=True, timeout=5) as database:
        rows = database.execute("SELECT row, article, description, quantity, price_hundredths,"
                                " unit, delivery, delivered FROM order_lines").fetchall()
    database.close()
    return {row: dict(zip(COLUMNS, rest)) for row, *rest in rows}


def articles_in(file):
    database = sqlite3.connect(file, timeout=5)
    rows = database.execute("SELECT code, description, unit, price_hundredths FROM articles")
    articles = {code: dict(description=description, unit=unit, price=price)
                for code, description, unit, price in rows}
    database.close()
    return articles


class Order:
    def __init__(self, articles, lines):
        self.articles = articles
        self.take(lines)

    def take(self, lines):
        """The file is the truth: after a kill, or where keys may have gone one way or another."""
        self.rows = {row: dict(line) for row, line in lines.items()}
        self.states = [self.saved()]

    def saved(self):
        """What belongs into the file now: a row without an article is no line."""
        return {row: dict(line) for row, line in self.rows.items() if line["article"]}

    def note(self):
        self.states.append(self.saved())

    def is_past(self):
        """All states but the present one are out of question."""
        self.states = [self.saved()]

    def line(self, row):
        return self.rows.setdefault(row, dict(BLANK))

    def next_row(self):
        return max((row for row, line in self.rows.items() if line != BLANK), default=0) + 1

    def row_of(self, article):
        return next((row for row, line in self.rows.items() if line["article"] == article), None)

    def enter(self, row, column, value):
        """A finished cell. An article that the shop knows brings what the operator left blank, or
        the former article had brought."""
        line = self.line(row)
        old, line[column] = line[column], value
        known = self.articles.get(value) if column == "article" else None
        if known:
            before = self.articles.get(old, BLANK)
            for field in ("description", "price", "unit"):
                if line[field] in (BLANK[field], before[field]):
                    line[field] = known[field]
        self.note()

    def remove(self, row):
        self.rows = {each - (each > row): line for each, line in self.rows.items() if each != row}
        self.note()

    def insert(self, row):
        self.rows = {each + (each >= row): line for each, line in self.rows.items()}
        self.note()
