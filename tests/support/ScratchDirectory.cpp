#include "ScratchDirectory.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace mv_test {

ScratchDirectory::ScratchDirectory() : previous_directory(std::filesystem::current_path()) {
  std::string pattern = (std::filesystem::temp_directory_path() / "morvane-test-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) {
    ADD_FAILURE() << "cannot create a scratch directory from " << pattern;
  }
  directory = pattern;
  std::filesystem::current_path(directory);
  unsetenv("MORVANE_LOG");
  unsetenv("MORVANE_CONFIG");
}

ScratchDirectory::~ScratchDirectory() {
  std::error_code ignored;
  std::filesystem::current_path(previous_directory, ignored);
  std::filesystem::remove_all(directory, ignored);
}

const std::string& ScratchDirectory::path() const { return directory; }

void ScratchDirectory::write(const std::string& name, const std::string& contents) const {
  std::ofstream file(directory + "/" + name, std::ios::binary);
  file << contents;
}

std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream contents;
  contents << file.rdbuf();
  return contents.str();
}

std::string fileText(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    text += line + "\n";
  }
  return text;
}

}  // namespace mv_test
