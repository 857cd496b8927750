// Base of the engine's singleton services: a started flag, a type name for the
// log, and the table of which objects want which events.
#pragma once

#include <string>
#include <vector>

#include "ObjectList.h"

namespace mv {

class Event;
class Object;

class Manager {
 public:
  Manager(const Manager&) = delete;
  Manager& operator=(const Manager&) = delete;

  // Whether objects may register with this manager for `event_type`; none by default.
  virtual bool isValid(std::string event_type) const;

  virtual ~Manager();

  // Marks the manager started. Always 0; warns on a second start.
  virtual int startUp();

  // Marks the manager stopped; warns if it was not started.
  virtual void shutDown();

  // Sends the event to every active object interested in its label, in order
  // of registration; answers how many were called. Handlers may change the
  // table meanwhile: the walk is over a copy.
  int onEvent(const Event* event) const;

  // 0, or -1 when the label is not this manager's or all its places are taken.
  int registerInterest(Object* object, std::string event_type);

  // 0, or -1 when the object was not registered for the label.
  int unregisterInterest(Object* object, std::string event_type);

  std::string getType() const;
  void setType(std::string type);
  bool isStarted() const;

 protected:
  Manager();

  // The guard that opens every subclass's startUp: true, with a warning in the
  // log, if the manager is running already.
  bool refuseSecondStart() const;

 private:
  // The objects that want one label, in order of registration.
  struct Interest {
    std::string event_type;
    ObjectList obj_list;
  };
  std::vector<Interest>::iterator findInterest(const std::string& event_type);

  std::string type;
  // Labels in the order they were first wanted; a label is here only while some object wants it.
  std::vector<Interest> interests;
  bool started;
};

}  // namespace mv
