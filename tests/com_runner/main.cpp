/// `tablio_com_scenarios FILE…` plays scenario files against the registered Windows control with
/// the system's own input.

#include <tablio/testing/com_driver.h>
#include <tablio/testing/player.h>

int main(int argc, char **argv) {
    tablio::scenario::ComDriver driver;
    return tablio::scenario::runScenarioFiles(driver, argc, argv);
}
