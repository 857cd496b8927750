#include "quietEngine.h"

#include <cstdlib>

#include "LogManager.h"

namespace mv_fuzz {

void startQuietLog() {
  setenv("ALSOFT_DRIVERS", "null", 1);
  setenv("MORVANE_LOG", "/dev/null", 1);
  mv::LogManager::getInstance().setLogLevel(30);
  mv::LogManager::getInstance().startUp();
}

}  // namespace mv_fuzz
