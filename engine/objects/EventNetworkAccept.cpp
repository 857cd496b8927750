#include "EventNetworkAccept.h"

namespace mv {

EventNetworkAccept::EventNetworkAccept(int network_type) : EventNetwork(network_type) {
  setType(NETWORK_ACCEPT_EVENT);
}

}  // namespace mv
