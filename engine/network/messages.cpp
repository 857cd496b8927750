#include "messages.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <sstream>

#include "ByteWriter.h"

namespace mv {

static_assert(MESSAGE_HEADER_BYTES == 4, "a message's body length goes as four bytes");

int messageLabelCode(const std::string& label) {
  const auto found = std::find(std::begin(MESSAGE_LABELS), std::end(MESSAGE_LABELS), label);
  return found == std::end(MESSAGE_LABELS)
             ? -1
             : static_cast<int>(std::distance(std::begin(MESSAGE_LABELS), found));
}

std::string frameMessage(const std::string& label, const std::string& payload) {
  const int code = messageLabelCode(label);
  const std::size_t body = payload.size() + 1;
  if (code == -1 || body > MAX_MESSAGE_BODY) {
    return "";
  }
  std::ostringstream frame;
  ByteWriter out(frame);
  out.writeUnsigned(static_cast<std::uint32_t>(body));
  out.writeByte(static_cast<unsigned char>(code));
  frame << payload;
  return frame.str();
}

}  // namespace mv
