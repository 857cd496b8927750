// A client connected to the server.
#pragma once

#include "EventNetwork.h"

namespace mv {

class EventNetworkAccept : public EventNetwork {
 public:
  explicit EventNetworkAccept(int network_type = 0);
};

}  // namespace mv
