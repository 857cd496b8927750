// What runs every demonstration: it leaves on Escape, and with --screenshot
// it saves the picture once the demonstration says it is ready, and leaves.
#pragma once

#include <string>

#include "Object.h"

class DemoShow : public mv::Object {
 public:
  // An empty `screenshot_file` takes no picture.
  explicit DemoShow(std::string screenshot_file);

  int eventHandler(const mv::Event* event) override;

 protected:
  // The demonstration's own part of each step; answers whether the picture
  // is ready to be taken.
  virtual bool step(int step_count) = 0;

 private:
  std::string screenshot;
};

// The file named by "--screenshot FILE" on the command line, made absolute,
// or empty without it.
std::string screenshotFileFrom(int argc, char* argv[]);
