#include "LogManager.h"

#include <cstdlib>
#include <ctime>
#include <string>

#include "Config.h"
#include "GameManager.h"

namespace mv {

const char* getTimeString() {
  static char time_string[32];
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  if (now == static_cast<std::time_t>(-1) || localtime_r(&now, &local) == nullptr) {
    return "(time error)";
  }
  std::snprintf(time_string, sizeof time_string, "%02d:%02d:%02d", local.tm_hour, local.tm_min,
                local.tm_sec);
  return time_string;
}

LogManager::LogManager()
    : flush(false), log_level(0), log_time_string(true), log_step_count(true), log_file(nullptr) {
  setType("LogManager");
}

LogManager::~LogManager() {
  if (log_file != nullptr) {
    std::fclose(log_file);
  }
}

LogManager& LogManager::getInstance() {
  static LogManager instance;
  return instance;
}

int LogManager::startUp() {
  if (refuseSecondStart()) {
    return -1;
  }
  const char* from_environment = std::getenv("MORVANE_LOG");
  const std::string file_name =
      from_environment != nullptr ? from_environment : Config::getInstance().getLogFile();
  log_file = std::fopen(file_name.c_str(), "w");
  if (log_file == nullptr) {
    writeLog("LogManager::startup(): Warning! Unable to open file '%s'.", file_name.c_str());
    return -1;
  }
  Manager::startUp();
  writeLog(5, "LogManager::startUp(): successfully started.");
  return 0;
}

void LogManager::shutDown() {
  Manager::shutDown();
  writeLog(5, "LogManager::shutDown(): successfully stopped.");
  if (log_file != nullptr) {
    std::fclose(log_file);
    log_file = nullptr;
  }
}

int LogManager::writeLog(int level, const char* format, ...) {
  std::va_list args;
  va_start(args, format);
  const int written = writeLine(level, format, args);
  va_end(args);
  return written;
}

int LogManager::writeLog(const char* format, ...) {
  std::va_list args;
  va_start(args, format);
  const int written = writeLine(log_level, format, args);
  va_end(args);
  return written;
}

int LogManager::writeLine(int level, const char* format, std::va_list args) {
  if (level > log_level) {
    return 0;
  }
  std::FILE* stream = log_file != nullptr ? log_file : stderr;
  bool failed = false;
  if (log_time_string) {
    failed |= std::fprintf(stream, "%s ", getTimeString()) < 0;
  }
  if (log_step_count) {
    failed |= std::fprintf(stream, "%4d ", GameManager::getInstance().getStepCount()) < 0;
  }
  const int message_length = std::vfprintf(stream, format, args);
  failed |= message_length < 0;
  failed |= std::fputc('\n', stream) == EOF;
  if (flush) {
    std::fflush(stream);
  }
  return failed ? -1 : message_length;
}

int LogManager::getLogLevel() const { return log_level; }

void LogManager::setLogLevel(int level) { log_level = level; }

void LogManager::setFlush(bool flush_each_line) { flush = flush_each_line; }

}  // namespace mv
