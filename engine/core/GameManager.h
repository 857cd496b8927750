// The root of the engine: starts and stops every manager in order, and runs
// the frame loop that counts the steps.
#pragma once

#include <string>

#include "Manager.h"
#include "MorvaneVersion.h"

namespace mv {

class GameManager : public Manager {
 public:
  static GameManager& getInstance();

  // Loads the configuration and starts the managers in order: 0, or -1 when
  // one of them refuses (those already started stay so until shutDown).
  int startUp() override;

  // Stops whatever is started, in the reverse order of starting.
  void shutDown() override;

  // Runs frames until something sets game over, or SIGINT, SIGTERM or SIGHUP
  // comes; may be entered again, but runs no frame after such a signal.
  void run();

  bool isValid(std::string event_type) const override;

  void setGameOver(bool new_game_over = true);
  bool getGameOver() const;
  int getFrameTime() const;
  int getStepCount() const;

 private:
  GameManager();
  void giveTheWorldTheDisplaysSize() const;
  void letWatchersIn() const;
  void writeWorkingDirectory() const;
  void seedRandomGenerator() const;
  void pollNetwork() const;
  void stopIfStarted(Manager& manager, const char* stopped_line);
  void noticeStopSignal();

  bool game_over;
  int frame_time;
  int step_count;
  bool stopped_by_signal;
};

}  // namespace mv
