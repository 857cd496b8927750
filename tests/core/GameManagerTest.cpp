#include "GameManager.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <functional>

#include "EventStep.h"
#include "LogManager.h"
#include "RecordingObject.h"
#include "ScratchDirectory.h"
#include "WorldManager.h"
#include "logLines.h"

namespace {

using mv::GameManager;
using mv::LogManager;

const std::string STARS(52, '*');

// These cases are about the start and stop sequence, not about the window.
const std::string HEADLESS = "headless:true,";

// Starts and stops the engine with this configuration; answers the log's messages.
std::vector<std::string> startAndStop(const mv_test::ScratchDirectory& scratch,
                                      const std::string& config) {
  scratch.write("mv-config.txt", HEADLESS + config);
  GameManager& game = GameManager::getInstance();
  EXPECT_EQ(game.startUp(), 0);
  EXPECT_EQ(game.startUp(), -1) << "a second start is refused";
  EXPECT_TRUE(game.isStarted());
  game.shutDown();
  EXPECT_FALSE(game.isStarted());
  EXPECT_FALSE(LogManager::getInstance().isStarted());
  return mv_test::logFileMessages();
}

TEST(GameManagerStartUp, WritesTheBannerAndAtEveryLevelEachStepInOrderAndSeedsAsConfigured) {
  const std::vector<std::string> expected = {
      STARS,
      "** Morvane version 4.21 **",
      "** Game engine started **",
      STARS,
      "GameManager::startup(): Warning! GameManager already started.",
      STARS,
      "** Game engine stopped **"};
  mv_test::ScratchDirectory scratch;
  EXPECT_EQ(startAndStop(scratch, ""), expected);
  EXPECT_TRUE(GameManager::getInstance().isValid("mv-step"));
  EXPECT_FALSE(GameManager::getInstance().isValid("mv-step ")) << "labels are compared whole";

  // With every level shown.
  LogManager::getInstance().setLogLevel(10);
  const std::string directory = std::filesystem::current_path().string();
  std::srand(1234);
  const int expected_first = std::rand();
  std::srand(1);
  const std::vector<std::string> messages =
      startAndStop(scratch, "frame_time:25,random_seed:1234,");
  EXPECT_EQ(std::rand(), expected_first);
  EXPECT_TRUE(mv_test::inOrder(messages, {"LogManager::startUp(): successfully started.",
                                          "** Game engine started **",
                                          "Morvane configuration:",
                                          "  Frame time: 25",
                                          "  Scene graph: grid",
                                          "Working directory:",
                                          "  " + directory,
                                          "Log Manager started.",
                                          "GameManager::startUp(): frame time is 25 milliseconds",
                                          "Display manager started.",
                                          "Input manager started.",
                                          "Network manager started.",
                                          "Resource manager started.",
                                          "World manager started.",
                                          "GameManager()::startUp(): srand() seed with 1234",
                                          "GameManager successfully started.",
                                          "World manager stopped",
                                          "Resource manager stopped",
                                          "Network manager stopped",
                                          "Input manager stopped",
                                          "Display manager stopped",
                                          "** Game engine stopped **",
                                          "LogManager::shutDown(): successfully stopped."}));

  const auto seeded = testing::Contains(testing::HasSubstr("srand() seed with"));
  EXPECT_THAT(startAndStop(scratch, "random_seed:-1,"), testing::Not(seeded))
      << "-1 leaves the generator alone";
  EXPECT_THAT(startAndStop(scratch, "random_seed:0,"), seeded) << "0 seeds from the time";
}

TEST(GameManagerStartUp, FailingLogStopsTheStartAndShutDownStillEndsCleanly) {
  mv_test::ScratchDirectory scratch;
  setenv("MORVANE_LOG", "missing-folder/morvane.log", 1);
  GameManager& game = GameManager::getInstance();

  const std::string errors = mv_test::stderrOf([&] {
    EXPECT_EQ(game.startUp(), -1);
    game.shutDown();
  });
  EXPECT_EQ(mv_test::logMessages(errors),
            (std::vector<std::string>{
                "LogManager::startup(): Warning! Unable to open file 'missing-folder/morvane.log'.",
                "GameManager::startUp(): Error! Starting log manager.", STARS,
                "** Game engine stopped **"}));
  EXPECT_FALSE(game.isStarted());
  EXPECT_FALSE(LogManager::getInstance().isStarted());
  EXPECT_TRUE(game.getGameOver());
}

TEST(GameManagerRun, AFrameThatSetsGameOverRunsToItsEndEachRunCountsFromZeroAndStopDeletesAll) {
  mv_test::ScratchDirectory scratch;
  scratch.write("mv-config.txt", HEADLESS + "frame_time:0,");
  GameManager& game = GameManager::getInstance();
  ASSERT_EQ(game.startUp(), 0);
  // Counts its steps, moves one cell a frame and ends the run at `last_step`.
  auto* counter = new mv_test::RecordingObject("counter", mv::Vector(1, 1), mv::SPECTRAL);
  counter->setVelocity(mv::Vector(1, 0));
  counter->registerInterest("mv-step");
  std::vector<int> steps;
  int last_step = 3;
  bool deleted = false;
  counter->on_event = [&](const mv::Event* event) {
    steps.push_back(static_cast<const mv::EventStep*>(event)->getStepCount());
    if (steps.back() == last_step) {
      game.setGameOver();
    }
  };
  counter->on_destroy = [&] { deleted = true; };

  game.run();
  EXPECT_EQ(steps, (std::vector<int>{0, 1, 2, 3}));
  EXPECT_EQ(game.getStepCount(), 4) << "the last frame still counts";
  EXPECT_EQ(counter->getPosition(), mv::Vector(5, 1)) << "and its objects still moved";

  last_step = 1;
  game.run();
  EXPECT_EQ(steps, (std::vector<int>{0, 1, 2, 3, 0, 1}));
  game.shutDown();
  EXPECT_TRUE(deleted) << "shutting down deletes what is left in the world";
  EXPECT_FALSE(mv::WorldManager::getInstance().isStarted());

  EXPECT_EQ(mv_test::readFile("morvane.log").find("Can't keep up"), std::string::npos)
      << "a frame time of 0 runs flat out without complaint";
}

// Ends the run at step 10 if nothing ends it before, so that a run that misses
// its signal fails rather than runs for ever; `on_step` sees each step first.
void endTheRunByStepTen(std::function<void(int)> on_step = nullptr) {
  auto* guard = new mv_test::RecordingObject("guard", mv::Vector(1, 1), mv::SPECTRAL);
  guard->registerInterest("mv-step");
  guard->on_event = [on_step](const mv::Event* event) {
    const int step = static_cast<const mv::EventStep*>(event)->getStepCount();
    if (on_step) {
      on_step(step);
    }
    if (step == 10) {
      GameManager::getInstance().setGameOver();
    }
  };
}

// Ctrl-C, a closed terminal and a desktop that logs out each end the game as Q does.
TEST(GameManagerRun, AStopSignalEndsTheRunAtTheEndOfItsFrameAndTheEngineStopsInOrder) {
  const struct {
    int signal_number;
    const char* name;
  } signals[] = {{SIGINT, "Interrupt"}, {SIGTERM, "Terminated"}, {SIGHUP, "Hangup"}};
  for (const auto& s : signals) {
    SCOPED_TRACE(s.name);
    mv_test::ScratchDirectory scratch;
    scratch.write("mv-config.txt", HEADLESS + "frame_time:0,");
    GameManager& game = GameManager::getInstance();
    ASSERT_EQ(game.startUp(), 0);
    int steps = 0;
    endTheRunByStepTen([&](int step) {
      steps++;
      if (step == 1) {
        std::raise(s.signal_number);
      }
    });
    game.run();
    EXPECT_EQ(game.getStepCount(), 2) << "the frame of the signal runs to its end";
    game.run();
    EXPECT_EQ(steps, 2) << "a later run runs no frame";
    game.shutDown();
    const std::vector<std::string> log = mv_test::logFileMessages();
    ASSERT_GE(log.size(), 3u);
    EXPECT_EQ(std::vector<std::string>(log.end() - 3, log.end()),
              (std::vector<std::string>{"GameManager::run(): Caught signal " +
                                            std::to_string(s.signal_number) + " (" + s.name +
                                            "). Ending the game.",
                                        STARS, "** Game engine stopped **"}));
  }
}

TEST(GameManagerRun, ASecondStopSignalEndsTheProgramAtOnce) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  mv_test::ScratchDirectory scratch;
  scratch.write("mv-config.txt", HEADLESS + "frame_time:0,");
  GameManager& game = GameManager::getInstance();
  // The engine started, `signals` runs; a program that lives through it exits.
  const auto killed_by = [&](int signal_number, const char* when,
                             const std::function<void()>& signals) {
    EXPECT_EXIT(
        {
          game.startUp();
          signals();
          std::exit(0);
        },
        testing::KilledBySignal(signal_number), "")
        << when;
  };
  killed_by(SIGTERM, "the same signal twice before the frame ends", [] {
    std::raise(SIGTERM);
    std::raise(SIGTERM);
  });
  killed_by(SIGHUP, "any of them once the loop has seen the first", [&] {
    endTheRunByStepTen();
    std::raise(SIGINT);
    game.run();
    std::raise(SIGHUP);
  });
  killed_by(SIGINT, "and any after shut-down, as before start-up", [&] {
    game.shutDown();
    std::raise(SIGINT);
  });
}

}  // namespace
