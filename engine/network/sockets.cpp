#include "sockets.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>

namespace mv {
namespace sockets {

namespace {

// An error found by our own checks rather than by a system call.
int failWith(int error) {
  errno = error;
  return -1;
}

// A game's messages are small and wanted now: none waits to be sent with the
// next. A socket that refuses only loses speed.
int sendingAtOnce(int socket) {
  if (socket != -1) {
    const int on = 1;
    setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  }
  return socket;
}

// Closes the socket but keeps the error that made us give it up.
int giveUp(int socket) {
  const int error = errno;
  ::close(socket);
  return failWith(error);
}

}  // namespace

int listenOn(const std::string& address, int port, int backlog) {
  sockaddr_in where{};
  where.sin_family = AF_INET;
  where.sin_port = htons(static_cast<std::uint16_t>(port));
  if (port < 0 || port > 65535 || inet_pton(AF_INET, address.c_str(), &where.sin_addr) != 1) {
    return failWith(EINVAL);
  }
  const int listener = openStreamSocket();
  if (listener == -1) {
    return -1;
  }
  // A server restarted at once takes its port back while the old connections linger.
  const int reuse = 1;
  if (setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &reuse, sizeof reuse) == -1 ||
      bind(listener, reinterpret_cast<sockaddr*>(&where), sizeof where) == -1 ||
      ::listen(listener, backlog) == -1) {
    return giveUp(listener);
  }
  return listener;
}

int acceptConnection(int listener) {
  // Room for exactly an IPv4 address, the only kind the listener takes.
  sockaddr_in peer{};
  socklen_t size = sizeof peer;
  return sendingAtOnce(
      accept4(listener, reinterpret_cast<sockaddr*>(&peer), &size, SOCK_NONBLOCK | SOCK_CLOEXEC));
}

int openStreamSocket() {
  return sendingAtOnce(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
}

bool parseAddress(const std::string& host, std::uint32_t& address) {
  in_addr parsed{};
  if (inet_pton(AF_INET, host.c_str(), &parsed) != 1) {
    return false;
  }
  address = parsed.s_addr;
  return true;
}

int startConnecting(int socket, std::uint32_t address, int port) {
  if (port <= 0 || port > 65535) {
    return failWith(EINVAL);
  }
  sockaddr_in where{};
  where.sin_family = AF_INET;
  where.sin_port = htons(static_cast<std::uint16_t>(port));
  where.sin_addr.s_addr = address;
  return ::connect(socket, reinterpret_cast<sockaddr*>(&where), sizeof where);
}

bool inProgress(int error) { return error == EINPROGRESS || error == EALREADY; }

// A connection being made becomes writable once it stands or has failed;
// the socket's pending error tells which.
ConnectState connectState(int socket) {
  pollfd wanted{socket, POLLOUT, 0};
  const int ready = ::poll(&wanted, 1, 0);
  if (ready == -1) {
    return CONNECT_FAILED;
  }
  if (ready == 0) {
    return STILL_CONNECTING;
  }
  int error = 0;
  socklen_t size = sizeof error;
  if (getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &size) == -1) {
    return CONNECT_FAILED;
  }
  if (error != 0) {
    failWith(error);
    return CONNECT_FAILED;
  }
  return CONNECTED;
}

int localPort(int socket) {
  sockaddr_in where{};
  socklen_t size = sizeof where;
  if (getsockname(socket, reinterpret_cast<sockaddr*>(&where), &size) == -1) {
    return -1;
  }
  return ntohs(where.sin_port);
}

long sendSome(int socket, const void* buffer, std::size_t bytes) {
  return ::send(socket, buffer, bytes, MSG_NOSIGNAL);
}

long receiveSome(int socket, void* buffer, std::size_t capacity) {
  return ::recv(socket, buffer, capacity, 0);
}

int limitSendBuffer(int socket, int bytes) {
  return setsockopt(socket, SOL_SOCKET, SO_SNDBUF, &bytes, sizeof bytes);
}

int closeSocket(int socket) { return ::close(socket); }

int lastError() { return errno; }

bool wouldBlock(int error) { return error == EWOULDBLOCK || error == EAGAIN; }

bool isClosedConnection(int error) {
  return error == ENOTCONN || error == EBADF || error == EPIPE || error == ECONNRESET;
}

std::string errorText(int error) { return std::strerror(error); }

}  // namespace sockets
}  // namespace mv
