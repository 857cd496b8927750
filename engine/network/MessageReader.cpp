#include "MessageReader.h"


namespace mv {

MessageReader::MessageReader(const std::vector<std::string>& labels) : labels(&labels), start(0) {}

void MessageReader::add(const char* bytes, std::size_t count) {
  if (isBroken()) {
    return;
  }
  // Dropping what was taken before adding keeps the buffer no larger than a
  // message in progress and one read.
  buffer.erase(0, start);
  start = 0;
  buffer.append(bytes, count);
}

MessageReader::Status MessageReader::next(Message& message) {
  if (isBroken()) {
    return BROKEN;
  }
  if (getHeldBytes() < MESSAGE_HEADER_BYTES) {
    return INCOMPLETE;
  }
  const std::size_t body = announcedBody();
  if (body > MAX_MESSAGE_BODY) {
    return breakWith("a message of " + std::to_string(body) + " bytes, more than the limit of " +
                     std::to_string(MAX_MESSAGE_BODY));
  }
  if (body == 0) {
    return breakWith("an empty message, without even a label");
  }
  if (getHeldBytes() < MESSAGE_HEADER_BYTES + body) {
    return INCOMPLETE;
  }
  const std::size_t code = static_cast<unsigned char>(buffer[start + MESSAGE_HEADER_BYTES]);
  if (code >= labels->size()) {
    return breakWith("a message with the unknown label code " + std::to_string(code));
  }
  message.label = (*labels)[code];
  message.payload.assign(buffer, start + MESSAGE_HEADER_BYTES + 1, body - 1);
  start += MESSAGE_HEADER_BYTES + body;
  return COMPLETE;
}

std::size_t MessageReader::getHeldBytes() const { return buffer.size() - start; }

std::size_t MessageReader::getAnnouncedBytes() const {
  return getHeldBytes() < MESSAGE_HEADER_BYTES ? 0 : MESSAGE_HEADER_BYTES + announcedBody();
}

bool MessageReader::isBroken() const { return !problem.empty(); }

std::string MessageReader::getProblem() const { return problem; }

MessageReader::Status MessageReader::breakWith(const std::string& new_problem) {
  problem = new_problem;
  buffer.clear();
  start = 0;
  return BROKEN;
}

std::size_t MessageReader::announcedBody() const {
  std::size_t body = 0;
  for (std::size_t i = 0; i < MESSAGE_HEADER_BYTES; i++) {
    body |= static_cast<std::size_t>(static_cast<unsigned char>(buffer[start + i])) << (8 * i);
  }
  return body;
}

}  // namespace mv
