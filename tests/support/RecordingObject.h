// A world object for tests that writes down every event it is handed, so that
// tests can check what reached it and in which order.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "Object.h"

namespace mv_test {

class RecordingObject : public mv::Object {
 public:
  explicit RecordingObject(const std::string& name = "thing", mv::Vector position = {1, 1},
                           mv::Solidness solidness = mv::HARD);
  ~RecordingObject() override;

  int eventHandler(const mv::Event* event) override;
  int draw() override;

  // "mv-collision with wall" and the like, one entry per event received.
  std::vector<std::string> received;
  // Run on each event after it is written down; lets a test act inside a dispatch.
  std::function<void(const mv::Event*)> on_event;
  // Run in the destructor, while the object is still in the world.
  std::function<void()> on_destroy;
};

// The labels each object received, in order, across several objects:
// "name: entry" lines, so a test can compare whole dispatch orders.
extern std::vector<std::string> dispatch_log;

}  // namespace mv_test
