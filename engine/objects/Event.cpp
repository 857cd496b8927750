#include "Event.h"

#include <utility>

namespace mv {

Event::Event() : type(UNDEFINED_EVENT) {}

Event::~Event() = default;

void Event::setType(std::string new_type) { type = std::move(new_type); }

std::string Event::getType() const { return type; }

}  // namespace mv
