// Base of the engine's singleton services: a started flag and a type name for the log.
#pragma once

#include <string>

namespace mv {

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

  std::string getType() const;
  void setType(std::string type);
  bool isStarted() const;

 protected:
  Manager();

  // The guard that opens every subclass's startUp: true, with a warning in the
  // log, if the manager is running already.
  bool refuseSecondStart() const;

 private:
  std::string type;
  bool started;
};

}  // namespace mv
