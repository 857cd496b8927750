// Something that happened on a network socket. Its subclasses name what.
#pragma once

#include <string>
#include <vector>

#include "Event.h"

namespace mv {

inline const std::string NETWORK_EVENT = "mv-network";
inline const std::string NETWORK_ACCEPT_EVENT = "mv-network-accept";
inline const std::string NETWORK_CLOSE_EVENT = "mv-network-close";
inline const std::string NETWORK_CONNECT_EVENT = "mv-network-connect";

// The labels a message between peers may carry, in the order of their codes
// on the wire; a game gives them meanings of its own.
inline const std::vector<std::string> MESSAGE_LABELS = {
    NETWORK_EVENT,          "mv-network-create",   "mv-network-sync",  "mv-network-delete",
    "mv-network-game-over", "mv-keyboard-network", "mv-mouse-network", "mv-custom-network",
};

// The labels that each side's own manager raises of its connections, which no
// peer can send.
inline const std::vector<std::string> CONNECTION_LABELS = {
    NETWORK_ACCEPT_EVENT, NETWORK_CONNECT_EVENT, NETWORK_CLOSE_EVENT};

// Whether the label belongs to the network: one of the two lists above.
bool isNetworkEvent(const std::string& label);

class EventNetwork : public Event {
 public:
  // `network_type`: -1 undefined, 0 accept, 1 connect, 2 close, 3 a message received.
  // Anything else is logged and stored as -1.
  explicit EventNetwork(int network_type = -1);

  void setNetworkType(int new_network_type);
  int getNetworkType() const;
  void setSocket(int new_socket);
  int getSocket() const;
  void setBytes(int new_bytes);
  int getBytes() const;
  // The bytes of a message received, `bytes` long; null for events that carry
  // none. They belong to whoever raised the event and last as long as the dispatch.
  void setMessage(const char* new_message);
  const char* getMessage() const;

 private:
  int network_type;
  int socket;
  int bytes;
  const char* message;
};

}  // namespace mv
