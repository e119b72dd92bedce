#include <tablio/testing/play_scenario.h>

#include <tablio/testing/player.h>

#include <utility>

namespace tablio::scenario {

QString playScenario(QtDriver::FormMaker makeForm, const QString &path, QString gridName) {
    QString report;
    try {
        QtDriver driver(std::move(makeForm), std::move(gridName));
        Player player(driver);
        const std::string name = path.toStdString();
        const ScenarioFile file = parseScenarios(name, readFile(name));
        for (const Scenario &scenario : file.scenarios) {
            for (const Failure &failure : player.play(file, scenario))
                report += QStringLiteral("%1:%2: in \"%3\": %4\n")
                              .arg(path)
                              .arg(failure.line)
                              .arg(QString::fromStdString(scenario.name),
                                   QString::fromStdString(failure.message));
        }
    } catch (const ScriptError &error) {
        report += QString::fromUtf8(error.what());
    }
    return report;
}

} // namespace tablio::scenario
