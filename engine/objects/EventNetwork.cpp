#include "EventNetwork.h"

#include <algorithm>
#include <iterator>

#include "LogManager.h"

namespace mv {

bool isNetworkEvent(const std::string& label) {
  const auto listed = [&label](const auto& labels) {
    return std::find(std::begin(labels), std::end(labels), label) != std::end(labels);
  };
  return listed(MESSAGE_LABELS) || listed(CONNECTION_LABELS);
}

EventNetwork::EventNetwork(int new_network_type)
    : network_type(-1), socket(-1), bytes(0), message(nullptr) {
  setType(NETWORK_EVENT);
  if (new_network_type < -1 || new_network_type > 3) {
    LogManager::getInstance().writeLog("EventNetwork::setLabel(): Undefined type (%d).",
                                       new_network_type);
    return;
  }
  network_type = new_network_type;
}

void EventNetwork::setNetworkType(int new_network_type) { network_type = new_network_type; }
int EventNetwork::getNetworkType() const { return network_type; }
void EventNetwork::setSocket(int new_socket) { socket = new_socket; }
int EventNetwork::getSocket() const { return socket; }
void EventNetwork::setBytes(int new_bytes) { bytes = new_bytes; }
int EventNetwork::getBytes() const { return bytes; }
void EventNetwork::setMessage(const char* new_message) { message = new_message; }
const char* EventNetwork::getMessage() const { return message; }

}  // namespace mv
