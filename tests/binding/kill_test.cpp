/// A form that is killed while an operator types at full speed: every row that it has called saved
/// is in the database, and no row is there by half. TABLIO_KILL_ROWS says of how many rows.

#include "bound_form.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>

namespace {

class Typist {
public:
    Typist(const QString &file, int count) {
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process_.start(QStringLiteral(TABLIO_BINDING_TYPIST), {file, QString::number(count)});
    }
    /// The rows that it has called saved until it was killed or had ended.
    QList<int> run(int milliseconds) {
        isDone_ = process_.waitForFinished(milliseconds);
        if (!isDone_) {
            process_.kill();
            process_.waitForFinished();
        }
        QList<int> rows;
        for (const QByteArray &line : process_.readAllStandardOutput().split('\n'))
            rows += line.toInt();
        rows.removeAll(0);
        return rows;
    }
    [[nodiscard]] bool isDone() const { return isDone_ && process_.exitCode() == 0; }

private:
    QProcess process_;
    bool isDone_ = false;
};

TEST(KilledForm, HasSavedWhatItSaidAndNothingByHalf) {
    const int rows = qEnvironmentVariable("TABLIO_KILL_ROWS", "600").toInt();
    LiteFile file;
    sql(file.own,
        {"DELETE FROM item",
         QString("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n LIMIT %1)"
                 " INSERT INTO item (id, name, count) SELECT i, 'old ' || i, 0 FROM n")
             .arg(rows)});
    QRandomGenerator random(20261123);
    int kills = 0;
    int said = 0;
    bool isDone = false;
    // Longer rounds where there is more to read first; the last one is left to end.
    for (int round = 1; !isDone && round < 2000; ++round) {
        Typist typist(file.path(), 11);
        const QList<int> saved = typist.run(random.bounded(300, 900 + rows / 3));
        isDone = typist.isDone();
        kills += isDone ? 0 : 1;
        said += static_cast<int>(saved.size());
        for (const int row : saved) {
            EXPECT_EQ(sql(file.own, QString("SELECT name, count, price, code FROM item"
                                            " WHERE id = %1")
                                        .arg(row)),
                      QStringList(QString("row %1 of 11|11|%2.11|C%1-11").arg(row).arg(row % 900)));
        }
        EXPECT_EQ(sql(file.own,
                      "SELECT count(*) FROM item WHERE NOT"
                      " (name = 'old ' || id AND count = 0 AND price IS NULL)"
                      " AND NOT (name = 'row ' || id || ' of 11' AND count = 11 AND"
                      " abs(price - id % 900 - 0.11) < 0.001 AND code = 'C' || id || '-11')"),
                  QStringList("0"))
            << "after " << round << " rounds";
        EXPECT_EQ(sql(file.own, "PRAGMA integrity_check"), QStringList("ok"));
    }
    EXPECT_TRUE(isDone);
    EXPECT_EQ(sql(file.own, "SELECT count(*) FROM item WHERE count = 11"),
              QStringList(QString::number(rows)));
    EXPECT_GT(kills, 0);
    std::printf("%d rows, %d kills, %d rows said to be saved\n", rows, kills, said);
}

} // namespace
