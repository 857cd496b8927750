// Something that happened, named by a string label. Events live on the stack of
// whoever raises them for the length of one dispatch; handlers compare the
// label exactly, then cast down to the class the label stands for.
#pragma once

#include <string>

namespace mv {

// The label of an event that nothing set; managers refuse to dispatch it.
inline const std::string UNDEFINED_EVENT = "mv-undefined";

class Event {
 public:
  Event();
  virtual ~Event();

  void setType(std::string new_type);
  std::string getType() const;

 private:
  std::string type;
};

}  // namespace mv
