#include "EventNetworkClose.h"

namespace mv {

EventNetworkClose::EventNetworkClose(int network_type) : EventNetwork(network_type) {
  setType(NETWORK_CLOSE_EVENT);
}

}  // namespace mv
