// One connection of the network manager and everything kept for it. Outgoing,
// whole frames wait in a buffer until the socket takes them, so that a slow
// peer gets everything, late and in order. Incoming, a reader puts messages
// back together; each poll hands on no more than a cap of them, so that one
// peer's flood can't take a frame from the others, and a message must be
// whole within a number of polls from its first byte.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "HostLookup.h"
#include "MessageReader.h"

namespace mv {

class Connection {
 public:
  using Time = std::chrono::steady_clock::time_point;

  enum OpenOutcome { OPENING, OPENED, OPEN_FAILED };
  enum WriteOutcome { ALL_WRITTEN, SOME_WAIT, WRITE_FAILED };
  enum ReadOutcome { STILL_OPEN, PEER_GONE, READ_FAILED };

  // A connection that stands, as accepted, whose messages carry one of `labels`.
  Connection(int socket, unsigned serial,
             const std::vector<std::string>& labels = MESSAGE_LABELS);
  // One that starts opening to `host` (a name or a dotted address) at `port`,
  // and gives up after `timeout_ms` milliseconds from `now`.
  Connection(int socket, unsigned serial, const std::string& host, int port, Time now,
             int timeout_ms, const std::vector<std::string>& labels = MESSAGE_LABELS);

  int getSocket() const;
  // Tells this connection apart from a later one that gets the same socket number.
  unsigned getSerial() const;
  int getValue() const;
  void setValue(int new_value);
  const std::string& getHost() const;
  int getPort() const;

  bool isOpen() const;
  // Takes the opening one step further without waiting: looks for the name's
  // answer, starts connecting, or finds the connection made or refused.
  OpenOutcome advanceOpening(Time now);
  // Why the opening failed: the resolver's or the system's reason, or the time out.
  const std::string& getOpenProblem() const;

  // Keeps a frame to go once game step `step` has come.
  void queue(std::string frame, int step);
  // Moves the queued frames that are due at `step` into the outgoing buffer,
  // in order; one not yet due holds back those behind it.
  void moveDue(int step);
  void append(const std::string& frame);
  // Writes what the socket takes of the outgoing buffer and keeps the rest.
  // WRITE_FAILED leaves the system's reason in sockets::lastError().
  WriteOutcome writeWaiting();
  std::size_t getWaitingBytes() const;

  // Reads what has arrived, up to `most_bytes`, into the reader; nothing while
  // the reader already holds a whole message's worth, so that a peer that
  // sends faster than its messages are handed on waits in the system's buffers.
  ReadOutcome readArrived(std::vector<char>& buffer, std::size_t most_bytes);
  // Bytes as a read brings them.
  void take(const char* bytes, std::size_t count);

  // One poll's handing on: startPoll, nextMessage until it answers false, endPoll.
  void startPoll(std::size_t most_messages, std::size_t most_bytes);
  // The next whole message, if this poll's cap has room for it.
  bool nextMessage(Message& message);
  void endPoll();
  // Whether the last poll stopped at its cap with messages still to hand on.
  bool wasCapped() const;
  // Polls since the first byte of a message that is not yet whole; 0 when none is.
  int getPollsOnMessage() const;
  const MessageReader& getReader() const;

 private:
  enum State { LOOKING_UP, CONNECTING, OPEN, FAILED };

  void startConnecting(std::uint32_t address);
  OpenOutcome fail(const std::string& problem);

  int socket;
  unsigned serial;
  int value;
  std::string host;
  int port;
  State state;
  std::unique_ptr<HostLookup> lookup;
  Time deadline;
  int timeout_ms;
  std::string open_problem;

  struct Delayed {
    std::string frame;
    int step;
  };
  std::deque<Delayed> queued;
  std::string outgoing;
  // How much of `outgoing` the socket has taken.
  std::size_t written;

  MessageReader reader;
  bool peer_gone;
  std::size_t most_messages;
  std::size_t most_bytes;
  std::size_t handed_messages;
  std::size_t handed_bytes;
  bool capped;
  int polls_on_message;
};

}  // namespace mv
