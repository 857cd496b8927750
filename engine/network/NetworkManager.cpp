#include "NetworkManager.h"

#include <algorithm>
#include <utility>

#include "EventNetwork.h"
#include "EventNetworkAccept.h"
#include "EventNetworkClose.h"
#include "GameManager.h"
#include "LogManager.h"
#include "sockets.h"

namespace mv {

namespace {

constexpr int DEFAULT_MAX_CONNECTIONS = 3;
// About ten seconds of frames at the usual frame time.
constexpr int DEFAULT_STALL_LIMIT = 300;
constexpr int LISTEN_BACKLOG = 16;
constexpr int CONNECT_TYPE = 1;
constexpr int MESSAGE_TYPE = 3;
constexpr std::size_t READ_BYTES = 64 * 1024;
// A peer that sends without pause still leaves the frame its time.
constexpr std::size_t MOST_BYTES_PER_POLL = 16 * READ_BYTES;

LogManager& log() { return LogManager::getInstance(); }

void writeErrorText(int error) {
  log().writeLog("\t%d - %s", error, sockets::errorText(error).c_str());
}

}  // namespace

NetworkManager::NetworkManager()
    : sock(-1),
      max_connections(DEFAULT_MAX_CONNECTIONS),
      stall_limit(DEFAULT_STALL_LIMIT),
      next_serial(0),
      read_buffer(READ_BYTES) {
  setType("NetworkManager");
}

NetworkManager& NetworkManager::getInstance() {
  static NetworkManager instance;
  return instance;
}

// Linux sockets need no library started, so the start can't fail.
int NetworkManager::startUp() {
  if (refuseSecondStart()) {
    return -1;
  }
  Manager::startUp();
  log().writeLog(5, "NetworkManager::startUp(): successfully started.");
  return 0;
}

void NetworkManager::shutDown() {
  close(-1);
  if (sock != -1) {
    sockets::closeSocket(sock);
    sock = -1;
  }
  Manager::shutDown();
  log().writeLog(5, "NetworkManager::shutDown(): successfully stopped.");
}

bool NetworkManager::isValid(std::string event_type) const {
  if (isNetworkEvent(event_type)) {
    return true;
  }
  log().writeLog("NetworkManager::isValid(): Error! NetworkManager does not handle %s.",
                 event_type.c_str());
  return false;
}

int NetworkManager::startServer(int port, const std::string& address) {
  if (isServer()) {
    log().writeLog("NetworkManager::startServer(): Error! Already a server on port %d.", getPort());
    return -1;
  }
  const int listener = sockets::listenOn(address, port, LISTEN_BACKLOG);
  if (listener == -1) {
    log().writeLog("NetworkManager::startServer(): Error! Cannot listen on %s port %d:",
                   address.c_str(), port);
    writeErrorText(sockets::lastError());
    return -1;
  }
  sock = listener;
  log().writeLog(1, "NetworkManager::startServer(): Listening on %s port %d.", address.c_str(),
                 getPort());
  return 0;
}

bool NetworkManager::isServer() const { return sock != -1; }

int NetworkManager::getPort() const { return isServer() ? sockets::localPort(sock) : -1; }

int NetworkManager::accept() {
  if (!isServer()) {
    log().writeLog("NetworkManager::accept(): Error! Not setup as server.");
    return -2;
  }
  if (static_cast<int>(connections.size()) >= max_connections) {
    log().writeLog(20, "NetworkManager::accept(): Won't check for new connetions since at max.");
    log().writeLog(20, "\tUse NM.setMaxConnections() to change max.");
    return -1;
  }
  const int socket = sockets::acceptConnection(sock);
  if (socket == -1) {
    const int error = sockets::lastError();
    if (sockets::wouldBlock(error)) {
      log().writeLog(15, "NetworkManager::accept(): No new connection. Not blocking.");
      return -1;
    }
    log().writeLog("NetworkManager::accept(): Error! accept() returned:");
    writeErrorText(error);
    return -2;
  }
  log().writeLog(1, "NetworkManager::accept(): New connection, socket %d.", socket);
  addConnection(socket);
  EventNetworkAccept accepted(0);
  accepted.setSocket(socket);
  accepted.setBytes(0);
  onEvent(&accepted);
  return socket;
}

int NetworkManager::connect(const std::string& host, int port) {
  if (static_cast<int>(connections.size()) >= max_connections) {
    log().writeLog("NetworkManager::connect(): Error! Already at the most connections, %d.",
                   max_connections);
    return -1;
  }
  const int socket = sockets::connectTo(host, port);
  if (socket == -1) {
    log().writeLog(
        "NetworkManager::connect(): Error! connect() to %s port %d returned:", host.c_str(), port);
    writeErrorText(sockets::lastError());
    return -1;
  }
  log().writeLog(1, "NetworkManager::connect(): Connected to %s port %d, socket %d.", host.c_str(),
                 port, socket);
  addConnection(socket);
  EventNetwork connected(CONNECT_TYPE);
  connected.setType(NETWORK_CONNECT_EVENT);
  connected.setSocket(socket);
  connected.setBytes(0);
  onEvent(&connected);
  return socket;
}

void NetworkManager::addConnection(int socket) {
  connections.push_back(socket);
  connection_values.push_back(0);
  pending.emplace_back();
  incoming.push_back(Incoming{MessageReader(), 0, next_serial++});
}

int NetworkManager::close(int socket) {
  if (socket != -1) {
    const int index = indexOf(socket);
    if (index == -1) {
      log().writeLog("NetworkManager::close(): Error! Socket %d not found.", socket);
      return -1;
    }
    return closeAt(static_cast<std::size_t>(index));
  }
  while (!connections.empty()) {
    if (closeAt(0) != 0) {
      return -1;
    }
  }
  return 0;
}

// The connection leaves the tables before its event goes out, so that a
// handler that sends to it, or closes it, finds it gone rather than a socket
// number the system may already have given to someone else.
int NetworkManager::closeAt(std::size_t index) {
  const int socket = connections[index];
  if (sockets::closeSocket(socket) != 0) {
    log().writeLog("NetworkManager::close(): Error! close() returned:");
    writeErrorText(sockets::lastError());
    return -1;
  }
  connections.erase(connections.begin() + static_cast<long>(index));
  connection_values.erase(connection_values.begin() + static_cast<long>(index));
  pending.erase(pending.begin() + static_cast<long>(index));
  incoming.erase(incoming.begin() + static_cast<long>(index));
  EventNetworkClose closed(2);
  closed.setSocket(socket);
  closed.setBytes(0);
  onEvent(&closed);
  return 0;
}

bool NetworkManager::isConnected(int socket) const {
  if (socket == -1) {
    return !connections.empty();
  }
  if (indexOf(socket) == -1) {
    log().writeLog("NetworkManager::isConnected(): Warning! Socket %d not connected.", socket);
    return false;
  }
  return true;
}

std::vector<int> NetworkManager::getConnections() const { return connections; }

void NetworkManager::setMaxConnections(int new_max_connections) {
  max_connections = new_max_connections;
}

int NetworkManager::getMaxConnections() const { return max_connections; }

int NetworkManager::setConnectionValue(int socket, int value) {
  if (!isConnected(socket)) {
    return -1;
  }
  connection_values[static_cast<std::size_t>(indexOf(socket))] = value;
  return 0;
}

int NetworkManager::getConnectionValue(int socket) const {
  return isConnected(socket) ? connection_values[static_cast<std::size_t>(indexOf(socket))] : -1;
}

int NetworkManager::indexOf(int socket) const {
  const auto found = std::find(connections.begin(), connections.end(), socket);
  return found == connections.end() ? -1 : static_cast<int>(found - connections.begin());
}

int NetworkManager::indexOfLive(int socket, unsigned serial) const {
  const int index = indexOf(socket);
  return index != -1 && incoming[static_cast<std::size_t>(index)].serial == serial ? index : -1;
}

int NetworkManager::send(const void* buffer, int bytes, int socket) {
  const long sent = sendBytes(buffer, static_cast<std::size_t>(std::max(bytes, 0)), socket);
  if (sent == -1) {
    return -1;
  }
  if (sent != bytes) {
    log().writeLog("NetworkManager::send(): Warning! %ld of %d bytes sent.", sent, bytes);
    return -1;
  }
  return 0;
}

long NetworkManager::sendBytes(const void* buffer, std::size_t bytes, int socket) {
  if (!isConnected(socket)) {
    log().writeLog("NetworkManager::send(): Error! Socket %d not connected. Unable to send.",
                   socket);
    return -1;
  }
  log().writeLog(15, "NetworkManager::send(): Socket %d. Calling ::send()...", socket);
  const long sent = sockets::sendSome(socket, buffer, bytes);
  if (sent == -1) {
    const int error = sockets::lastError();
    log().writeLog("NetworkManager::send(): Error! Return is -1.");
    writeErrorText(error);
    if (sockets::isClosedConnection(error)) {
      log().writeLog(1, "\tsocket is closed");
      close(socket);
    }
  }
  return sent;
}

int NetworkManager::sendFrame(const std::string& frame, int socket) {
  const long sent = sendBytes(frame.data(), frame.size(), socket);
  if (sent == static_cast<long>(frame.size())) {
    return 0;
  }
  if (sent > 0) {
    log().writeLog(
        "NetworkManager::sendFrame(): Error! %ld of %zu bytes sent to socket %d; its stream is "
        "out of step, closing it.",
        sent, frame.size(), socket);
    close(socket);
  }
  return -1;
}

std::string NetworkManager::frameOrSay(const char* caller, const std::string& label,
                                       const std::string& payload) const {
  std::string frame = frameMessage(label, payload);
  if (frame.empty()) {
    log().writeLog(
        "NetworkManager::%s(): Error! '%s' is not a message label, or %zu bytes are more than "
        "the %zu a message holds.",
        caller, label.c_str(), payload.size(), MAX_MESSAGE_BODY - 1);
  }
  return frame;
}

int NetworkManager::sendMessage(const std::string& label, const std::string& payload, int socket) {
  const std::string frame = frameOrSay("sendMessage", label, payload);
  return frame.empty() ? -1 : sendFrame(frame, socket);
}

int NetworkManager::queueMessage(const std::string& label, const std::string& payload, int socket,
                                 int step) {
  if (!isConnected(socket)) {
    log().writeLog("NetworkManager::queueMessage(): Error! Socket %d not connected.", socket);
    return -1;
  }
  std::string frame = frameOrSay("queueMessage", label, payload);
  if (frame.empty()) {
    return -1;
  }
  pending[static_cast<std::size_t>(indexOf(socket))].push_back(
      DelayedMessage{std::move(frame), step});
  return 0;
}

// A send may close its connection, and the close event's handlers may close
// others, so the walk goes by the table as it stands after each send.
int NetworkManager::flushDelayed() {
  const int step = GameManager::getInstance().getStepCount();
  int sum = 0;
  std::size_t index = 0;
  while (index < connections.size()) {
    const int socket = connections[index];
    while (!pending[index].empty() && pending[index].front().step <= step) {
      const DelayedMessage due = std::move(pending[index].front());
      pending[index].pop_front();
      sum += sendFrame(due.data, socket);
      if (index >= connections.size() || connections[index] != socket) {
        break;
      }
    }
    if (index < connections.size() && connections[index] == socket) {
      index++;
    }
  }
  return sum;
}

int NetworkManager::receive() {
  std::vector<std::pair<int, unsigned>> polled;
  for (std::size_t i = 0; i < connections.size(); i++) {
    polled.emplace_back(connections[i], incoming[i].serial);
  }
  int delivered = 0;
  for (const auto& [socket, serial] : polled) {
    delivered += receiveFrom(socket, serial);
  }
  return delivered;
}

void NetworkManager::setStallLimit(int polls) { stall_limit = polls; }

// Messages that arrived whole are handed on before a peer that went away or
// misbehaved is closed, so nothing it sent properly is lost.
int NetworkManager::receiveFrom(int socket, unsigned serial) {
  int index = indexOfLive(socket, serial);
  if (index == -1) {
    return 0;
  }
  const ReadOutcome outcome = readWhatArrived(static_cast<std::size_t>(index));
  const int delivered = deliverMessages(socket, serial);
  index = indexOfLive(socket, serial);
  if (index != -1) {
    closeIfPeerMisbehaved(static_cast<std::size_t>(index), outcome);
  }
  return delivered;
}

NetworkManager::ReadOutcome NetworkManager::readWhatArrived(std::size_t index) {
  Incoming& in = incoming[index];
  std::size_t total = 0;
  while (total < MOST_BYTES_PER_POLL && !in.reader.isBroken()) {
    const long got = sockets::receiveSome(connections[index], read_buffer.data(), READ_BYTES);
    if (got == 0) {
      return PEER_GONE;
    }
    if (got == -1) {
      const int error = sockets::lastError();
      if (sockets::wouldBlock(error)) {
        break;
      }
      log().writeLog("NetworkManager::receive(): Error! recv() on socket %d returned:",
                     connections[index]);
      writeErrorText(error);
      return READ_FAILED;
    }
    in.reader.add(read_buffer.data(), static_cast<std::size_t>(got));
    total += static_cast<std::size_t>(got);
  }
  in.quiet_polls = total > 0 || in.reader.getHeldBytes() == 0 ? 0 : in.quiet_polls + 1;
  return STILL_OPEN;
}

int NetworkManager::deliverMessages(int socket, unsigned serial) {
  int delivered = 0;
  Message message;
  int index = indexOfLive(socket, serial);
  while (index != -1 && incoming[static_cast<std::size_t>(index)].reader.next(message) ==
                            MessageReader::COMPLETE) {
    log().writeLog(15, "NetworkManager::receive(): Socket %d. %s of %zu bytes.", socket,
                   message.label.c_str(), message.payload.size());
    EventNetwork received(MESSAGE_TYPE);
    received.setType(message.label);
    received.setSocket(socket);
    received.setBytes(static_cast<int>(message.payload.size()));
    received.setMessage(message.payload.data());
    onEvent(&received);
    delivered++;
    // A handler may have closed the connection.
    index = indexOfLive(socket, serial);
  }
  return delivered;
}

void NetworkManager::closeIfPeerMisbehaved(std::size_t index, ReadOutcome outcome) {
  const int socket = connections[index];
  const MessageReader& reader = incoming[index].reader;
  if (reader.isBroken()) {
    log().writeLog("NetworkManager::receive(): Error! Socket %d sent %s; closing it.", socket,
                   reader.getProblem().c_str());
  } else if (outcome == PEER_GONE && reader.getHeldBytes() > 0) {
    log().writeLog(
        "NetworkManager::receive(): Warning! Socket %d closed by its peer in the middle of a "
        "message; %zu bytes of it dropped.",
        socket, reader.getHeldBytes());
  } else if (outcome == PEER_GONE) {
    log().writeLog(1, "NetworkManager::receive(): Socket %d closed by its peer.", socket);
  } else if (incoming[index].quiet_polls > 0 && incoming[index].quiet_polls >= stall_limit) {
    log().writeLog(
        "NetworkManager::receive(): Error! Socket %d sent %zu bytes of a message and then nothing "
        "for %d polls; closing it.",
        socket, reader.getHeldBytes(), stall_limit);
  } else if (outcome != READ_FAILED) {
    return;
  }
  close(socket);
}

}  // namespace mv
