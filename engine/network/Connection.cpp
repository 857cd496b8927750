#include "Connection.h"

#include <utility>

#include "messages.h"
#include "sockets.h"

namespace mv {

namespace {

// A reader that holds this much has a whole message of any allowed size, or
// is past one: reading more can wait until it has handed some on.
constexpr std::size_t READ_AHEAD_BYTES = MESSAGE_HEADER_BYTES + MAX_MESSAGE_BODY;

}  // namespace

Connection::Connection(int socket, unsigned serial, const std::vector<std::string>& labels)
    : socket(socket),
      serial(serial),
      value(0),
      port(0),
      state(OPEN),
      timeout_ms(0),
      written(0),
      reader(labels),
      peer_gone(false),
      most_messages(0),
      most_bytes(0),
      handed_messages(0),
      handed_bytes(0),
      capped(false),
      polls_on_message(0) {}

Connection::Connection(int socket, unsigned serial, const std::string& host, int port, Time now,
                       int timeout_ms, const std::vector<std::string>& labels)
    : Connection(socket, serial, labels) {
  this->host = host;
  this->port = port;
  this->timeout_ms = timeout_ms;
  deadline = now + std::chrono::milliseconds(timeout_ms);
  std::uint32_t address = 0;
  if (sockets::parseAddress(host, address)) {
    startConnecting(address);
  } else {
    state = LOOKING_UP;
    lookup = std::make_unique<HostLookup>(host);
  }
}

int Connection::getSocket() const { return socket; }

unsigned Connection::getSerial() const { return serial; }

int Connection::getValue() const { return value; }

void Connection::setValue(int new_value) { value = new_value; }

const std::string& Connection::getHost() const { return host; }

int Connection::getPort() const { return port; }

bool Connection::isOpen() const { return state == OPEN; }

void Connection::startConnecting(std::uint32_t address) {
  if (sockets::startConnecting(socket, address, port) == 0) {
    state = OPEN;
  } else if (sockets::inProgress(sockets::lastError())) {
    state = CONNECTING;
  } else {
    fail(sockets::errorText(sockets::lastError()));
  }
}

Connection::OpenOutcome Connection::advanceOpening(Time now) {
  if (state == LOOKING_UP && lookup->isDone()) {
    if (!lookup->isFound()) {
      return fail("no address found for the name: " + lookup->getProblem());
    }
    startConnecting(lookup->getAddress());
  }
  if (state == CONNECTING) {
    const sockets::ConnectState connecting = sockets::connectState(socket);
    if (connecting == sockets::CONNECTED) {
      state = OPEN;
    } else if (connecting == sockets::CONNECT_FAILED) {
      return fail(sockets::errorText(sockets::lastError()));
    }
  }
  if (state == OPEN) {
    return OPENED;
  }
  if (state == FAILED) {
    return OPEN_FAILED;
  }
  if (now >= deadline) {
    return fail("no answer within " + std::to_string(timeout_ms) + " ms");
  }
  return OPENING;
}

Connection::OpenOutcome Connection::fail(const std::string& problem) {
  state = FAILED;
  open_problem = problem;
  return OPEN_FAILED;
}

const std::string& Connection::getOpenProblem() const { return open_problem; }

void Connection::queue(std::string frame, int step) {
  queued.push_back(Delayed{std::move(frame), step});
}

void Connection::moveDue(int step) {
  while (!queued.empty() && queued.front().step <= step) {
    append(queued.front().frame);
    queued.pop_front();
  }
}

void Connection::append(const std::string& frame) { outgoing += frame; }

Connection::WriteOutcome Connection::writeWaiting() {
  WriteOutcome outcome = SOME_WAIT;
  while (written < outgoing.size()) {
    const long sent = sockets::sendSome(socket, outgoing.data() + written, outgoing.size() - written);
    if (sent == -1) {
      if (!sockets::wouldBlock(sockets::lastError())) {
        outcome = WRITE_FAILED;
      }
      break;
    }
    written += static_cast<std::size_t>(sent);
  }
  if (written == outgoing.size()) {
    outgoing.clear();
    written = 0;
    return outcome == WRITE_FAILED ? WRITE_FAILED : ALL_WRITTEN;
  }
  // Dropping what went out only once it is most of the buffer keeps each
  // byte's moving to a few times at most.
  if (written > outgoing.size() / 2) {
    outgoing.erase(0, written);
    written = 0;
  }
  return outcome;
}

std::size_t Connection::getWaitingBytes() const { return outgoing.size() - written; }

Connection::ReadOutcome Connection::readArrived(std::vector<char>& buffer, std::size_t most) {
  std::size_t total = 0;
  while (!peer_gone && total < most && reader.getHeldBytes() < READ_AHEAD_BYTES &&
         !reader.isBroken()) {
    const long got = sockets::receiveSome(socket, buffer.data(), buffer.size());
    if (got == 0) {
      peer_gone = true;
    } else if (got == -1) {
      if (sockets::wouldBlock(sockets::lastError())) {
        break;
      }
      return READ_FAILED;
    } else {
      take(buffer.data(), static_cast<std::size_t>(got));
      total += static_cast<std::size_t>(got);
    }
  }
  return peer_gone ? PEER_GONE : STILL_OPEN;
}

void Connection::take(const char* bytes, std::size_t count) { reader.add(bytes, count); }

void Connection::startPoll(std::size_t most_messages_now, std::size_t most_bytes_now) {
  most_messages = most_messages_now;
  most_bytes = most_bytes_now;
  handed_messages = 0;
  handed_bytes = 0;
  capped = false;
}

bool Connection::nextMessage(Message& message) {
  if (handed_messages >= most_messages || handed_bytes >= most_bytes) {
    const std::size_t held = reader.getHeldBytes();
    capped = held >= MESSAGE_HEADER_BYTES && held >= reader.getAnnouncedBytes();
    return false;
  }
  if (reader.next(message) != MessageReader::COMPLETE) {
    return false;
  }
  handed_messages++;
  handed_bytes += message.payload.size();
  return true;
}

// A message's polls count from the poll that brought its first byte: the one
// in which the message before it was handed on, or the first with bytes held.
void Connection::endPoll() {
  if (capped || reader.getHeldBytes() == 0) {
    polls_on_message = 0;
  } else if (handed_messages > 0) {
    polls_on_message = 1;
  } else {
    polls_on_message++;
  }
}

bool Connection::wasCapped() const { return capped; }

int Connection::getPollsOnMessage() const { return polls_on_message; }

const MessageReader& Connection::getReader() const { return reader; }

}  // namespace mv
