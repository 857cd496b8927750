// The few socket calls the network manager makes, behind names of our own:
// IPv4 stream sockets that never block the game loop. Every call answers -1
// on failure and leaves the reason in lastError().
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace mv {
namespace sockets {

// A listening socket on `port` (0 lets the system choose) at `address`, a
// dotted IPv4 address such as "127.0.0.1" or "0.0.0.0" for every interface.
// Accepting on it never blocks.
int listenOn(const std::string& address, int port, int backlog);

// The next connection waiting on `listener`, itself non-blocking.
int acceptConnection(int listener);

// A new IPv4 stream socket that never blocks.
int openStreamSocket();

// The IPv4 address that `host` writes in dots, in network byte order, into
// `address`; false when `host` is no such address (a name, say).
bool parseAddress(const std::string& host, std::uint32_t& address);

// Starts connecting `socket` to `address` (network byte order) at `port`:
// 0 when it stands at once, -1 otherwise; lastError() then says whether it
// is under way (inProgress) or failed.
int startConnecting(int socket, std::uint32_t address, int port);

// The call failed only because a connection is still being made.
bool inProgress(int error);

// How a connection being made stands: CONNECTED, STILL_CONNECTING, or
// CONNECT_FAILED with the reason in lastError().
enum ConnectState { CONNECTED, STILL_CONNECTING, CONNECT_FAILED };
ConnectState connectState(int socket);

// The port a socket is bound to, or -1.
int localPort(int socket);

// Sends what the socket takes at once: the count sent, or -1. A peer that has
// gone away gives an error, never a signal.
long sendSome(int socket, const void* buffer, std::size_t bytes);

// Reads what has arrived, up to `capacity`: the count read, 0 when the peer
// has closed its side, or -1.
long receiveSome(int socket, void* buffer, std::size_t capacity);

// Holds what the system keeps waiting to go out on `socket` to about `bytes`.
int limitSendBuffer(int socket, int bytes);

int closeSocket(int socket);

// The error code of the last failed call.
int lastError();

// The call failed only because nothing could be done without waiting.
bool wouldBlock(int error);

// The error says the connection is gone: not connected, not a socket we
// hold, the pipe broken or reset by the peer.
bool isClosedConnection(int error);

// The system's text for an error code.
std::string errorText(int error);

}  // namespace sockets
}  // namespace mv
