/// `tablio_scenarios FILE…` plays scenario files against the core, without a display.

#include <tablio/testing/core_driver.h>

#include <tablio/testing/player.h>

int main(int argc, char **argv) {
    tablio::scenario::CoreDriver driver;
    return tablio::scenario::runScenarioFiles(driver, argc, argv);
}
