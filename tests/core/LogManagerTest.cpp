#include "LogManager.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <regex>

#include "Config.h"
#include "ScratchDirectory.h"
#include "logLines.h"

namespace {

using mv::LogManager;

TEST(LogManager, WritesTimeAndStepDropsHighLevelsAndReplacesTheFileTheConfigOrEnvironmentNames) {
  LogManager& log = LogManager::getInstance();
  const std::string written = mv_test::stderrOf([&] {
    EXPECT_EQ(log.writeLog(0, "level %d", 0), 7);
    EXPECT_EQ(log.writeLog(1, "level %d", 1), 0);
    EXPECT_EQ(log.writeLog("always"), 6);
  });

  EXPECT_TRUE(std::regex_match(written, std::regex(R"(\d\d:\d\d:\d\d    0 level 0\n)"
                                                   R"(\d\d:\d\d:\d\d    0 always\n)")))
      << "before start-up lines go to standard error with the same prefix; got:\n"
      << written;

  mv_test::ScratchDirectory scratch;
  scratch.write("mv-config.txt", "logfile:game.log,");
  scratch.write("game.log", "the previous run\n");
  mv::Config::getInstance().loadConfig();
  ASSERT_EQ(log.startUp(), 0);
  log.writeLog("into the file");
  log.shutDown();
  EXPECT_FALSE(log.isStarted());
  EXPECT_TRUE(mv_test::hasMessage(mv_test::stderrOf([&] { log.writeLog("after the stop"); }),
                                  "after the stop"))
      << "a stopped log writes to standard error again";

  setenv("MORVANE_LOG", "chosen.log", 1);
  ASSERT_EQ(log.startUp(), 0);
  EXPECT_EQ(log.startUp(), -1) << "a second start is refused";
  log.shutDown();
  EXPECT_EQ(mv_test::logFileMessages("game.log"), std::vector<std::string>{"into the file"});
  EXPECT_EQ(
      mv_test::logFileMessages("chosen.log"),
      std::vector<std::string>{"LogManager::startup(): Warning! LogManager already started."});
}

}  // namespace
