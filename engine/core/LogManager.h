// The engine's one log: a text file of lines prefixed with the time and the
// step number, or standard error while no file is open.
#pragma once

#include <cstdarg>
#include <cstdio>

#include "Manager.h"

#if defined(__GNUC__)
#define MV_PRINTF_FORMAT(format_index, first_arg) \
  __attribute__((format(printf, format_index, first_arg)))
#else
#define MV_PRINTF_FORMAT(format_index, first_arg)
#endif

namespace mv {

// The local time as "HH:MM:SS" in a static buffer that each call overwrites,
// or "(time error)" if the clock can't be read.
const char* getTimeString();

class LogManager : public Manager {
 public:
  static LogManager& getInstance();

  ~LogManager() override;

  // Opens the file named by MORVANE_LOG, or else by the configuration, anew.
  int startUp() override;
  void shutDown() override;

  // Writes one line if `level` is not above the log level. Answers the length of
  // the message, 0 if its level dropped it, -1 if a write failed.
  int writeLog(int level, const char* format, ...) MV_PRINTF_FORMAT(3, 4);

  // Writes one line whatever the log level.
  int writeLog(const char* format, ...) MV_PRINTF_FORMAT(2, 3);

  int getLogLevel() const;
  void setLogLevel(int level);
  void setFlush(bool flush_each_line);

 private:
  LogManager();
  int writeLine(int level, const char* format, std::va_list args);

  bool flush;
  int log_level;
  bool log_time_string;
  bool log_step_count;
  std::FILE* log_file;
};

}  // namespace mv
