// The end of a path search: its result, and the path when one was found.
#pragma once

#include "Event.h"
#include "Path.h"

namespace mv {

inline const std::string PATH_EVENT = "mv-path";

class EventPath : public Event {
 public:
  EventPath();

  void setResult(int new_result);
  int getResult() const;
  void setPath(Path new_path);
  Path getPath() const;

 private:
  int result;
  Path path;
};

}  // namespace mv
