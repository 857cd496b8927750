#include "EventPath.h"

#include <utility>

namespace mv {

EventPath::EventPath() : result(0) { setType(PATH_EVENT); }

void EventPath::setResult(int new_result) { result = new_result; }
int EventPath::getResult() const { return result; }
void EventPath::setPath(Path new_path) { path = std::move(new_path); }
Path EventPath::getPath() const { return path; }

}  // namespace mv
