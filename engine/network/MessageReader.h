// Puts the messages of one connection back together from the pieces its reads
// bring, however the stream was cut on the way. A stream that breaks the frame
// rules can't be brought back in step, so the reader stays broken and holds
// no more bytes.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "messages.h"

namespace mv {

class MessageReader {
 public:
  enum Status { COMPLETE, INCOMPLETE, BROKEN };

  // A reader of messages that carry one of `labels`, which must outlive it.
  explicit MessageReader(const std::vector<std::string>& labels = MESSAGE_LABELS);

  // Takes the bytes of one read; dropped once the stream is broken.
  void add(const char* bytes, std::size_t count);

  // Takes the next whole message off the front into `message`. INCOMPLETE while
  // the rest of it is still on the way; BROKEN, for good, when the stream
  // announces a message the rules don't allow (getProblem() says which).
  Status next(Message& message);

  // Bytes of a message that has not arrived whole.
  std::size_t getHeldBytes() const;

  // The frame length that the message in progress announced, header included;
  // 0 until its header is here.
  std::size_t getAnnouncedBytes() const;

  bool isBroken() const;
  std::string getProblem() const;

 private:
  Status breakWith(const std::string& problem);
  // The body length in the header at the front; call only with a whole header held.
  std::size_t announcedBody() const;

  const std::vector<std::string>* labels;
  std::string buffer;
  // Where the first byte not yet taken as a message stands in `buffer`.
  std::size_t start;
  std::string problem;
};

}  // namespace mv
