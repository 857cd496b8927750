// How messages travel between peers. Each is a frame: the length of its body
// in 4 bytes, least significant first, then the body: one byte that names
// the message's label, then the payload. The receiver raises the event of
// that label. Only MESSAGE_LABELS travel; accept, connect and close are told
// by each side's own network manager, so no peer can fake them.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "EventNetwork.h"

namespace mv {

constexpr std::size_t MESSAGE_HEADER_BYTES = 4;

// The largest body a peer may send or announce: the label's byte and the
// payload. A frame that claims more is taken as hostile.
constexpr std::size_t MAX_MESSAGE_BODY = 1 << 20;

// A message as the receiver hands it on: the event's label and the payload.
struct Message {
  std::string label;
  std::string payload;
};

// The code of a label on the wire; -1 if messages can't carry it.
int messageLabelCode(const std::string& label,
                     const std::vector<std::string>& labels = MESSAGE_LABELS);

// The frame of a message; empty if the label can't travel or the payload is
// too large for the receiver to take.
std::string frameMessage(const std::string& label, const std::string& payload,
                         const std::vector<std::string>& labels = MESSAGE_LABELS);

}  // namespace mv
