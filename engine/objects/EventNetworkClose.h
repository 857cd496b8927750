// A connection was closed.
#pragma once

#include "EventNetwork.h"

namespace mv {

class EventNetworkClose : public EventNetwork {
 public:
  explicit EventNetworkClose(int network_type = 2);
};

}  // namespace mv
