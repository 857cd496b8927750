// Feeds any bytes, cut into pieces of any size, to the reader that puts a
// connection's messages back together, and each message it gives on to an
// object's record reader, as a game would. The pieces must not matter: the
// same bytes in one piece give the same messages and the same verdict, and no
// message breaks the frame rules.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

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

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  mv_fuzz::startQuietLog();
  mv::WorldManager::getInstance().startUp();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  mv::MessageReader in_pieces;
  std::vector<mv::Message> from_pieces;
  std::string stream;
  while (input.remaining_bytes() > 0) {
    const std::string piece =
        input.ConsumeBytesAsString(input.ConsumeIntegralInRange<std::size_t>(0, LONGEST_PIECE));
    stream += piece;
    in_pieces.add(piece.data(), piece.size());
    const std::vector<mv::Message> taken = takeMessages(in_pieces);
    from_pieces.insert(from_pieces.end(), taken.begin(), taken.end());
    // Whatever the reader still holds is less than a whole message.
    require(in_pieces.isBroken() || in_pieces.getHeldBytes() < mv::MESSAGE_HEADER_BYTES ||
            in_pieces.getHeldBytes() < in_pieces.getAnnouncedBytes());
  }

  mv::MessageReader whole;
  whole.add(stream.data(), stream.size());
  require(sameMessages(takeMessages(whole), from_pieces));
  require(whole.isBroken() == in_pieces.isBroken());
  require(whole.getProblem() == in_pieces.getProblem());
  require(whole.getHeldBytes() == in_pieces.getHeldBytes());

  for (const mv::Message& message : from_pieces) {
    readAsRecord(message);
  }
  mv::WorldManager::getInstance().update();
  return 0;
}
