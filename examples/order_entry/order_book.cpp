#include "order_book.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <QVariant>

#include <algorithm>
#include <array>

namespace {

/// Marks a file as an order ("Ordr"), so that no other program's database is ever written to.
constexpr int orderFile = 0x4F726472;

struct Seed {
    const char *code;
    const char *description;
    qint64 hundredths;
};

constexpr std::array<Seed, 20> seeds{{
    {"BIND-A4", "Ring binder A4, 60 mm", 345},
    {"BOARD-90", "Whiteboard 90 x 60 cm", 4290},
    {"CALC-12", "Desk calculator, 12 digits", 1875},
    {"CHAIR-02", "Office chair, armrests", 18900},
    {"CLIP-33", "Paper clips 33 mm, box of 100", 89},
    {"DESK-160", "Desk 160 x 80 cm, oak", 32950},
    {"ENV-C5", "Envelopes C5, box of 500", 2460},
    {"FOLD-10", "Hanging folders, pack of 10", 799},
    {"GLUE-40", "Glue stick 40 g", 165},
    {"INK-BK", "Ink cartridge, black", 2199},
    {"LABEL-65", "Labels 38 x 21 mm, 65 a sheet", 1120},
    {"LAMP-LED", "Desk lamp, LED", 3995},
    {"MARK-4", "Whiteboard markers, set of 4", 520},
    {"NOTE-76", "Sticky notes 76 x 76 mm", 115},
    {"PAPER-A4", "Copy paper A4, 500 sheets", 449},
    {"PEN-BL", "Ballpoint pen, blue", 75},
    {"PUNCH-25", "Hole punch, 25 sheets", 1340},
    {"SHRED-08", "Shredder, 8 sheets", 5990},
    {"STAPLE-24", "Staples 24/6, box of 1000", 95},
    {"TAPE-50", "Packing tape 50 mm x 66 m", 210},
}};

struct Sample {
    const char *code;
    qint64 quantity;
};

constexpr std::array<Sample, 8> samples{{
    {"DESK-160", 4},
    {"CHAIR-02", 4},
    {"LAMP-LED", 6},
    {"PAPER-A4", 250},
    {"PEN-BL", 1200},
    {"ENV-C5", 15},
    {"INK-BK", 12},
    {"BIND-A4", 40},
}};

QSqlQuery run(const QSqlDatabase &database, const QString &statement,
              const QVariantList &values = {}) {
    QSqlQuery query(database);
    bool done = query.prepare(statement);
    for (const QVariant &value : values)
        query.addBindValue(value);
    done = done && query.exec();
    if (!done)
        throw OrderBookError(query.lastError().databaseText());
    return query;
}

/// Everything that is written while it lives is taken back unless it is committed.
class Transaction {
public:
    // IMMEDIATE: whether the file can be written shows here, not halfway through.
    explicit Transaction(const QSqlDatabase &database) : database_(database) {
        run(database_, QStringLiteral("BEGIN IMMEDIATE"));
    }
    ~Transaction() {
        if (!committed_)
            QSqlQuery(database_).exec(QStringLiteral("ROLLBACK"));
    }
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    void commit() {
        run(database_, QStringLiteral("COMMIT"));
        committed_ = true;
    }

private:
    const QSqlDatabase &database_;
    bool committed_ = false;
};

int number(const QSqlDatabase &database, const QString &statement) {
    QSqlQuery query = run(database, statement);
    return query.next() ? query.value(0).toInt() : 0;
}

} // namespace

OrderBook::OrderBook(const QString &file)
    : database_(
          QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QUuid::createUuid().toString())) {
    database_.setDatabaseName(QFileInfo(file).absoluteFilePath());
    // A short wait for another program's lock; what is not saved then is tried again.
    database_.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=500"));
    QDir().mkpath(QFileInfo(file).absolutePath());
    if (!database_.open())
        throw OrderBookError(database_.lastError().databaseText());
    create();
}

OrderBook::~OrderBook() {
    const QString name = database_.connectionName();
    database_ = QSqlDatabase();
    QSqlDatabase::removeDatabase(name);
}

QString OrderBook::file() const { return database_.databaseName(); }

void OrderBook::create() {
    const bool isEmpty =
        number(database_, QStringLiteral("SELECT count(*) FROM sqlite_master")) == 0;
    if (!isEmpty && number(database_, QStringLiteral("PRAGMA application_id")) != orderFile)
        throw OrderBookError(QStringLiteral("the file is another program's database"));
    // Who reads the file meanwhile does not hinder the operator.
    run(database_, QStringLiteral("PRAGMA journal_mode = WAL"));

    Transaction transaction(database_);
    if (isEmpty) {
        run(database_, QStringLiteral("PRAGMA application_id = %1").arg(orderFile));
        run(database_, QStringLiteral("CREATE TABLE articles (code TEXT PRIMARY KEY,"
                                      " description TEXT NOT NULL,"
                                      " price_hundredths INTEGER NOT NULL)"));
        run(database_, QStringLiteral("CREATE TABLE order_lines (row INTEGER PRIMARY KEY"
                                      " CHECK (row BETWEEN 1 AND 32767),"
                                      " article TEXT NOT NULL, description TEXT NOT NULL,"
                                      " quantity INTEGER NOT NULL CHECK (quantity >= 0),"
                                      " price_hundredths INTEGER NOT NULL"
                                      " CHECK (price_hundredths >= 0))"));
        for (const Seed &seed : seeds)
            run(database_, QStringLiteral("INSERT INTO articles VALUES (?, ?, ?)"),
                {QString::fromLatin1(seed.code), QString::fromLatin1(seed.description),
                 seed.hundredths});
    }
    transaction.commit();
}

OrderLines OrderBook::lines() const {
    QSqlQuery query = run(database_, QStringLiteral("SELECT row, article, description, quantity,"
                                                    " price_hundredths FROM order_lines"));
    OrderLines lines;
    while (query.next())
        lines[query.value(0).toInt()] = {query.value(1).toString(), query.value(2).toString(),
                                         query.value(3).toLongLong(),
                                         Money::ofHundredths(query.value(4).toLongLong())};
    return lines;
}

std::optional<Article> OrderBook::article(const QString &code) const {
    QSqlQuery query =
        run(database_,
            QStringLiteral("SELECT description, price_hundredths FROM articles WHERE code = ?"),
            {code});
    if (!query.next())
        return std::nullopt;
    return Article{code, query.value(0).toString(),
                   Money::ofHundredths(query.value(1).toLongLong())};
}

void OrderBook::save(const std::map<int, std::optional<OrderLine>> &rows) {
    Transaction transaction(database_);
    for (const auto &[row, line] : rows) {
        if (line)
            // A QString without text is bound as NULL.
            run(database_,
                QStringLiteral("REPLACE INTO order_lines VALUES (?, ?, coalesce(?, ''), ?, ?)"),
                {row, line->article, line->description, line->quantity, line->price.hundredths()});
        else
            run(database_, QStringLiteral("DELETE FROM order_lines WHERE row = ?"), {row});
    }
    transaction.commit();
}

void OrderBook::addSample() {
    if (!lines().empty())
        return;
    std::map<int, std::optional<OrderLine>> rows;
    int row = 0;
    for (const Sample &sample : samples) {
        const auto seed = std::find_if(seeds.begin(), seeds.end(), [&sample](const Seed &each) {
            return QLatin1String(each.code) == QLatin1String(sample.code);
        });
        if (seed != seeds.end())
            rows[++row] =
                OrderLine{QString::fromLatin1(seed->code), QString::fromLatin1(seed->description),
                          sample.quantity, Money::ofHundredths(seed->hundredths)};
    }
    save(rows);
}
