#include "MessageReader.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace {

using mv::Message;
using mv::MessageReader;

TEST(MessageFrame, IsTheBodysLengthLeastSignificantFirstThenTheLabelsCodeThenThePayload) {
  EXPECT_EQ(mv::frameMessage("mv-network-sync", "ab"), std::string("\x03\0\0\0\x02"
                                                                   "ab",
                                                                   7));
  EXPECT_EQ(mv::frameMessage("mv-network", std::string(300, 'x')).substr(0, 5),
            std::string("\x2d\x01\0\0\0", 5));
  EXPECT_EQ(mv::frameMessage("mv-network-close", "x"), "") << "closes are never sent";
  EXPECT_EQ(mv::frameMessage("mv-network", std::string(mv::MAX_MESSAGE_BODY, 'x')), "")
      << "one byte over what a receiver takes";
}

// The same stream cut into pieces of every size gives the same messages.
TEST(MessageReader, PutsCutMessagesBackTogetherHalfOnesWaitAndABrokenStreamStaysBroken) {
  const std::vector<Message> sent = {{"mv-network-create", "first"},
                                     {"mv-network-delete", ""},
                                     {"mv-custom-network", std::string("\0\xff\0", 3)},
                                     {"mv-network-sync", std::string(70000, 's')}};
  std::string stream;
  for (const Message& message : sent) {
    stream += mv::frameMessage(message.label, message.payload);
  }
  for (const std::size_t piece : {1, 2, 3, 5, 4096, 1 << 20}) {
    SCOPED_TRACE(piece);
    MessageReader reader;
    std::vector<Message> got;
    for (std::size_t at = 0; at < stream.size(); at += piece) {
      reader.add(stream.data() + at, std::min(piece, stream.size() - at));
      Message message;
      while (reader.next(message) == MessageReader::COMPLETE) {
        got.push_back(message);
      }
    }
    ASSERT_EQ(got.size(), sent.size());
    for (std::size_t i = 0; i < sent.size(); i++) {
      EXPECT_EQ(got[i].label, sent[i].label);
      EXPECT_EQ(got[i].payload, sent[i].payload);
    }
    EXPECT_EQ(reader.getHeldBytes(), 0u);
  }

  MessageReader reader;
  const std::string frame = mv::frameMessage("mv-network-sync", "0123456789");
  reader.add(frame.data(), 7);
  Message message;
  EXPECT_EQ(reader.next(message), MessageReader::INCOMPLETE);
  EXPECT_EQ(reader.getHeldBytes(), 7u);
  EXPECT_EQ(reader.getAnnouncedBytes(), frame.size());

  const std::pair<std::string, const char*> broken[] = {
      {std::string("\x01\0\x10\0", 4),
       "a message of 1048577 bytes, more than the limit of 1048576"},
      {std::string(4, '\0'), "an empty message, without even a label"},
      {std::string("\x03\0\0\0\x2aok", 7), "a message with the unknown label code 42"}};
  for (const auto& [bytes, problem] : broken) {
    SCOPED_TRACE(problem);
    MessageReader hostile;
    hostile.add(bytes.data(), bytes.size());
    EXPECT_EQ(hostile.next(message), MessageReader::BROKEN);
    EXPECT_EQ(hostile.getProblem(), problem);
    hostile.add(frame.data(), frame.size());
    EXPECT_EQ(hostile.next(message), MessageReader::BROKEN) << "no way back into step";
    EXPECT_EQ(hostile.getHeldBytes(), 0u);
  }
}

}  // namespace
