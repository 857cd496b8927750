#include "NetworkManager.h"

#include <algorithm>
#include <chrono>
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
// Enough for any game's frame, and a flood still leaves the frame its time.
constexpr int DEFAULT_DELIVERY_MESSAGES = 1000;
constexpr std::size_t DEFAULT_DELIVERY_BYTES = 1 << 20;
// Several seconds of a busy game's traffic to a peer that reads nothing.
constexpr std::size_t DEFAULT_OUTGOING_CAP = 8 << 20;
constexpr int DEFAULT_CONNECT_TIMEOUT_MS = 5000;
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
      delivery_messages(DEFAULT_DELIVERY_MESSAGES),
      delivery_bytes(DEFAULT_DELIVERY_BYTES),
      outgoing_cap(DEFAULT_OUTGOING_CAP),
      connect_timeout_ms(DEFAULT_CONNECT_TIMEOUT_MS),
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
  addConnection(Connection(socket, next_serial++));
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
  if (host.empty() || port <= 0 || port > 65535) {
    log().writeLog("NetworkManager::connect(): Error! '%s' port %d is no address to connect to.",
                   host.c_str(), port);
    return -1;
  }
  const int socket = sockets::openStreamSocket();
  if (socket == -1) {
    log().writeLog("NetworkManager::connect(): Error! No socket to connect to %s port %d:",
                   host.c_str(), port);
    writeErrorText(sockets::lastError());
    return -1;
  }
  log().writeLog(1, "NetworkManager::connect(): Connecting to %s port %d, socket %d.", host.c_str(),
                 port, socket);
  return addConnection(Connection(socket, next_serial++, host, port,
                                  std::chrono::steady_clock::now(), connect_timeout_ms));
}

int NetworkManager::addConnection(Connection connection) {
  connections.push_back(std::move(connection));
  return connections.back().getSocket();
}

// A connection that opens raises its event and sends what waited for it; one
// that fails is closed, with its reason.
void NetworkManager::advanceOpenings() {
  const auto now = std::chrono::steady_clock::now();
  std::vector<std::pair<int, unsigned>> opening;
  for (const Connection& connection : connections) {
    if (!connection.isOpen()) {
      opening.emplace_back(connection.getSocket(), connection.getSerial());
    }
  }
  for (const auto& [socket, serial] : opening) {
    const int index = indexOfLive(socket, serial);
    if (index == -1) {
      continue;
    }
    Connection& connection = connections[static_cast<std::size_t>(index)];
    const Connection::OpenOutcome outcome = connection.advanceOpening(now);
    if (outcome == Connection::OPEN_FAILED) {
      log().writeLog("NetworkManager::connect(): Error! Connecting to %s port %d failed: %s.",
                     connection.getHost().c_str(), connection.getPort(),
                     connection.getOpenProblem().c_str());
      closeAt(static_cast<std::size_t>(index));
    } else if (outcome == Connection::OPENED) {
      log().writeLog(1, "NetworkManager::connect(): Connected to %s port %d, socket %d.",
                     connection.getHost().c_str(), connection.getPort(), socket);
      raiseConnected(socket);
      const int still = indexOfLive(socket, serial);
      if (still != -1) {
        writeWaiting(static_cast<std::size_t>(still), "connect");
      }
    }
  }
}

void NetworkManager::raiseConnected(int socket) {
  EventNetwork connected(CONNECT_TYPE);
  connected.setType(NETWORK_CONNECT_EVENT);
  connected.setSocket(socket);
  connected.setBytes(0);
  onEvent(&connected);
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
  const int socket = connections[index].getSocket();
  if (sockets::closeSocket(socket) != 0) {
    log().writeLog("NetworkManager::close(): Error! close() returned:");
    writeErrorText(sockets::lastError());
    return -1;
  }
  connections.erase(connections.begin() + static_cast<long>(index));
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

std::vector<int> NetworkManager::getConnections() const {
  std::vector<int> sockets_in_order;
  for (const Connection& connection : connections) {
    sockets_in_order.push_back(connection.getSocket());
  }
  return sockets_in_order;
}

void NetworkManager::setMaxConnections(int new_max_connections) {
  max_connections = new_max_connections;
}

int NetworkManager::getMaxConnections() const { return max_connections; }

int NetworkManager::setConnectionValue(int socket, int value) {
  if (!isConnected(socket)) {
    return -1;
  }
  connections[static_cast<std::size_t>(indexOf(socket))].setValue(value);
  return 0;
}

int NetworkManager::getConnectionValue(int socket) const {
  return isConnected(socket) ? connections[static_cast<std::size_t>(indexOf(socket))].getValue()
                             : -1;
}

int NetworkManager::indexOf(int socket) const {
  const auto found = std::find_if(
      connections.begin(), connections.end(),
      [socket](const Connection& connection) { return connection.getSocket() == socket; });
  return found == connections.end() ? -1 : static_cast<int>(found - connections.begin());
}

int NetworkManager::indexOfLive(int socket, unsigned serial) const {
  const int index = indexOf(socket);
  return index != -1 && connections[static_cast<std::size_t>(index)].getSerial() == serial ? index
                                                                                           : -1;
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
    sayFailedSend("send", socket, sockets::lastError());
  }
  return sent;
}

void NetworkManager::sayFailedSend(const char* caller, int socket, int error) {
  log().writeLog("NetworkManager::%s(): Error! Return is -1.", caller);
  writeErrorText(error);
  if (sockets::isClosedConnection(error)) {
    log().writeLog(1, "\tsocket is closed");
    close(socket);
  }
}

// A socket that takes nothing more now is the usual case with a slow peer:
// the rest goes in later frames. Only a peer that lets more than the cap
// pile up is given up on.
int NetworkManager::writeWaiting(std::size_t index, const char* caller) {
  Connection& connection = connections[index];
  const int socket = connection.getSocket();
  // What is sent to a connection still opening waits until it opens.
  const Connection::WriteOutcome outcome =
      connection.isOpen() ? connection.writeWaiting() : Connection::SOME_WAIT;
  if (outcome == Connection::WRITE_FAILED) {
    const int error = sockets::lastError();
    sayFailedSend(caller, socket, error);
    if (!sockets::isClosedConnection(error)) {
      close(socket);
    }
    return -1;
  }
  const std::size_t waiting = connection.getWaitingBytes();
  if (waiting > outgoing_cap) {
    log().writeLog(
        "NetworkManager::%s(): Error! Socket %d has %zu bytes waiting to go, more than its cap "
        "of %zu; closing it.",
        caller, socket, waiting, outgoing_cap);
    close(socket);
    return -1;
  }
  if (outcome == Connection::SOME_WAIT) {
    log().writeLog(15, "NetworkManager::%s(): Socket %d takes no more for now; %zu bytes wait.",
                   caller, socket, waiting);
  }
  return 0;
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
  if (!isConnected(socket)) {
    log().writeLog("NetworkManager::sendMessage(): Error! Socket %d not connected.", socket);
    return -1;
  }
  const std::string frame = frameOrSay("sendMessage", label, payload);
  if (frame.empty()) {
    return -1;
  }
  const auto index = static_cast<std::size_t>(indexOf(socket));
  connections[index].append(frame);
  return writeWaiting(index, "sendMessage");
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
  connections[static_cast<std::size_t>(indexOf(socket))].queue(std::move(frame), step);
  return 0;
}

// A write may close its connection, and the close event's handlers may close
// others, so the walk goes by the table as it stands after each write.
int NetworkManager::flushDelayed() {
  const int step = GameManager::getInstance().getStepCount();
  int sum = 0;
  std::size_t index = 0;
  while (index < connections.size()) {
    const unsigned serial = connections[index].getSerial();
    connections[index].moveDue(step);
    sum += writeWaiting(index, "flushDelayed");
    if (index < connections.size() && connections[index].getSerial() == serial) {
      index++;
    }
  }
  return sum;
}

int NetworkManager::receive() {
  advanceOpenings();
  std::vector<std::pair<int, unsigned>> polled;
  for (const Connection& connection : connections) {
    if (connection.isOpen()) {
      polled.emplace_back(connection.getSocket(), connection.getSerial());
    }
  }
  int delivered = 0;
  for (const auto& [socket, serial] : polled) {
    delivered += receiveFrom(socket, serial);
  }
  return delivered;
}

void NetworkManager::setStallLimit(int polls) { stall_limit = polls; }

void NetworkManager::setDeliveryCap(int messages, std::size_t bytes) {
  delivery_messages = messages;
  delivery_bytes = bytes;
}

void NetworkManager::setOutgoingCap(std::size_t bytes) { outgoing_cap = bytes; }

std::size_t NetworkManager::getWaitingBytes(int socket) const {
  const int index = indexOf(socket);
  return index == -1 ? 0 : connections[static_cast<std::size_t>(index)].getWaitingBytes();
}

void NetworkManager::setConnectTimeout(int milliseconds) { connect_timeout_ms = milliseconds; }

// Messages that arrived whole are handed on before a peer that went away or
// misbehaved is closed, so nothing it sent properly is lost.
int NetworkManager::receiveFrom(int socket, unsigned serial) {
  const int index = indexOfLive(socket, serial);
  if (index == -1) {
    return 0;
  }
  const Connection::ReadOutcome outcome =
      connections[static_cast<std::size_t>(index)].readArrived(read_buffer, MOST_BYTES_PER_POLL);
  if (outcome == Connection::READ_FAILED) {
    log().writeLog("NetworkManager::receive(): Error! recv() on socket %d returned:", socket);
    writeErrorText(sockets::lastError());
  }
  const int delivered = handOnMessages(socket, serial);
  const int still = indexOfLive(socket, serial);
  if (still != -1) {
    closeIfPeerMisbehaved(static_cast<std::size_t>(still), outcome);
  }
  return delivered;
}

int NetworkManager::handOnMessages(int socket, unsigned serial) {
  int delivered = 0;
  Message message;
  int index = indexOfLive(socket, serial);
  connections[static_cast<std::size_t>(index)].startPoll(
      static_cast<std::size_t>(std::max(delivery_messages, 1)), delivery_bytes);
  while (index != -1 && connections[static_cast<std::size_t>(index)].nextMessage(message)) {
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
  if (index != -1) {
    connections[static_cast<std::size_t>(index)].endPoll();
  }
  return delivered;
}

// A peer that went away is closed only once all it sent whole is handed on.
void NetworkManager::closeIfPeerMisbehaved(std::size_t index, Connection::ReadOutcome outcome) {
  const Connection& connection = connections[index];
  const int socket = connection.getSocket();
  const MessageReader& reader = connection.getReader();
  const bool gone = outcome != Connection::STILL_OPEN;
  if (connection.wasCapped() && !reader.isBroken()) {
    return;
  }
  if (reader.isBroken()) {
    log().writeLog("NetworkManager::receive(): Error! Socket %d sent %s; closing it.", socket,
                   reader.getProblem().c_str());
  } else if (outcome == Connection::PEER_GONE && reader.getHeldBytes() > 0) {
    log().writeLog(
        "NetworkManager::receive(): Warning! Socket %d closed by its peer in the middle of a "
        "message; %zu bytes of it dropped.",
        socket, reader.getHeldBytes());
  } else if (outcome == Connection::PEER_GONE) {
    log().writeLog(1, "NetworkManager::receive(): Socket %d closed by its peer.", socket);
  } else if (!gone && connection.getPollsOnMessage() > 0 &&
             connection.getPollsOnMessage() >= stall_limit) {
    log().writeLog(
        "NetworkManager::receive(): Error! Socket %d took %d polls over a message and sent only "
        "%zu bytes of it; closing it.",
        socket, stall_limit, reader.getHeldBytes());
  } else if (!gone) {
    return;
  }
  close(socket);
}

}  // namespace mv
