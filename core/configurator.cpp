#include "core/configurator.h"

namespace kavr6 {

Configurator::Configurator(Desktop& desktop, MSComm& comm, TableAccess& table)
    : motorTable(table),
      Main(desktop, {settings, comm, motorTable, MotorSetup, IOSetup}),
      MotorSetup(desktop, Main, motorTable),
      IOSetup(desktop),
      Splash(desktop, Main),
      Credits(desktop, Main) {
  Main.Openers.About = [this] { Credits.Run(); };
}

}  // namespace kavr6
