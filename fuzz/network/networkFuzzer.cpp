// Feeds any bytes, cut into pieces of any size, to a connection that puts its
// messages back together, and each message it hands on to an object's record
// reader, as a game would. After each piece the connection is polled with a
// delivery cap of any size: no poll may hand on more than its cap, and the
// pieces and the cap must not matter: the same bytes in one piece give the
// same messages and the same verdict, and no message breaks the frame rules.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "Connection.h"
#include "MessageReader.h"
#include "Object.h"
#include "WorldManager.h"
#include "quietEngine.h"

namespace {

// The largest piece one read hands the reader in these runs.
constexpr std::size_t LONGEST_PIECE = 300;

void require(bool condition) {
  if (!condition) {
    std::abort();
  }
}

void requireWithinTheRules(const mv::Message& message) {
  require(message.payload.size() < mv::MAX_MESSAGE_BODY);
  require(mv::messageLabelCode(message.label) != -1);
}

std::vector<mv::Message> takeMessages(mv::MessageReader& reader) {
  std::vector<mv::Message> messages;
  mv::Message message;
  while (reader.next(message) == mv::MessageReader::COMPLETE) {
    requireWithinTheRules(message);
    messages.push_back(message);
  }
  return messages;
}

bool sameMessages(const std::vector<mv::Message>& a, const std::vector<mv::Message>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const mv::Message& x, const mv::Message& y) {
                      return x.label == y.label && x.payload == y.payload;
                    });
}

// What a game does with a message that it takes for an object's record.
void readAsRecord(const mv::Message& message) {
  auto* object = new mv::Object;
  std::stringstream record(message.payload);
  object->deserialize(record);
  mv::WorldManager::getInstance().markForDelete(object);
}

// One poll under the cap: the messages it hands on, which stay within the cap
// by count, and by bytes but for the last one, which may pass it.
std::vector<mv::Message> pollUnderCap(mv::Connection& connection, std::size_t most_messages,
                                      std::size_t most_bytes) {
  connection.startPoll(most_messages, most_bytes);
  std::vector<mv::Message> handed;
  std::size_t bytes_before_last = 0;
  mv::Message message;
  while (connection.nextMessage(message)) {
    requireWithinTheRules(message);
    if (!handed.empty()) {
      bytes_before_last += handed.back().payload.size();
    }
    handed.push_back(message);
  }
  connection.endPoll();
  require(handed.size() <= most_messages);
  require(handed.empty() || bytes_before_last < most_bytes);
  return handed;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  mv_fuzz::startQuietLog();
  mv::WorldManager::getInstance().startUp();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const auto most_messages = input.ConsumeIntegralInRange<std::size_t>(1, 20);
  const auto most_bytes = input.ConsumeIntegralInRange<std::size_t>(1, 4096);
  mv::Connection in_pieces(-1, 0);
  std::vector<mv::Message> from_pieces;
  std::string stream;
  const auto poll = [&] {
    const std::vector<mv::Message> taken = pollUnderCap(in_pieces, most_messages, most_bytes);
    from_pieces.insert(from_pieces.end(), taken.begin(), taken.end());
    return !taken.empty();
  };
  while (input.remaining_bytes() > 0) {
    const std::string piece =
        input.ConsumeBytesAsString(input.ConsumeIntegralInRange<std::size_t>(0, LONGEST_PIECE));
    stream += piece;
    in_pieces.take(piece.data(), piece.size());
    poll();
  }
  // What waits behind the cap comes in the next polls; then whatever the
  // connection still holds is less than a whole message.
  while (poll()) {
  }
  const mv::MessageReader& left = in_pieces.getReader();
  require(!in_pieces.wasCapped());
  require(left.isBroken() || left.getHeldBytes() < mv::MESSAGE_HEADER_BYTES ||
          left.getHeldBytes() < left.getAnnouncedBytes());

  mv::MessageReader whole;
  whole.add(stream.data(), stream.size());
  require(sameMessages(takeMessages(whole), from_pieces));
  require(whole.isBroken() == left.isBroken());
  require(whole.getProblem() == left.getProblem());
  require(whole.getHeldBytes() == left.getHeldBytes());

  for (const mv::Message& message : from_pieces) {
    readAsRecord(message);
  }
  mv::WorldManager::getInstance().update();
  return 0;
}
