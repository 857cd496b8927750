// A fresh, empty working directory for one test, removed again afterwards.
// The engine reads its configuration from and writes its log to the working
// directory, so tests that start managers run inside one of these.
#pragma once

#include <string>
#include <vector>

namespace mv_test {

class ScratchDirectory {
 public:
  // Creates the directory, makes it the working directory and clears the
  // engine's environment variables, so that no outside setting leaks in.
  ScratchDirectory();
  ~ScratchDirectory();

  ScratchDirectory(const ScratchDirectory&) = delete;
  ScratchDirectory& operator=(const ScratchDirectory&) = delete;

  const std::string& path() const;

  // Writes `contents` to the file `name` inside the directory.
  void write(const std::string& name, const std::string& contents) const;

 private:
  std::string previous_directory;
  std::string directory;
};

std::string readFile(const std::string& path);

// The lines joined, each followed by a newline: the text of a file, or of a screen.
std::string fileText(const std::vector<std::string>& lines);

}  // namespace mv_test
