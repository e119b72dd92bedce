/// `tablio_scenarios FILE…` plays scenario files against the core, without a display.

#include "runner/core_driver.h"

#include "support/scenario_interpreter.h"

int main(int argc, char **argv) {
    tablio::scenario::CoreDriver driver;
    return tablio::scenario::runScenarioFiles(driver, argc, argv);
}
