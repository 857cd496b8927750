// Connected sockets and what travels over them. As a server it listens on a
// port and takes new connections once a frame; as a client it connects to one,
// without waiting: the connection opens in a later frame's poll, or fails
// there. Each connection keeps what it has to send until the socket takes it,
// a queue of messages due at later steps, and a reader that puts incoming
// messages back together, each handed to the objects that want its label.
// Nothing here waits for a peer: every socket is non-blocking.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "Connection.h"
#include "Manager.h"

namespace mv {

inline const std::string LOOPBACK_ADDRESS = "127.0.0.1";
inline const std::string ANY_ADDRESS = "0.0.0.0";

class NetworkManager : public Manager {
 public:
  static NetworkManager& getInstance();

  int startUp() override;
  // Closes every connection and the listening socket.
  void shutDown() override;

  // True for the eleven network labels; any other is logged.
  bool isValid(std::string event_type) const override;

  // Listens on `port` at `address` (LOOPBACK_ADDRESS or ANY_ADDRESS, say);
  // port 0 lets the system choose one, which getPort() then tells. 0, or -1
  // if this is a server already or the port can't be had.
  int startServer(int port, const std::string& address = LOOPBACK_ADDRESS);
  bool isServer() const;
  // The port the server listens on; -1 when this is not a server.
  int getPort() const;

  // Takes one waiting connection: its socket; -1 if none waits or the table
  // is full; -2 if this is not a server or the system fails.
  int accept();

  // Starts connecting to a server, `host` a name or a dotted address, and
  // answers the connection's socket at once; -1 when the address is malformed
  // or the table is full. "mv-network-connect" comes in a later poll, once the
  // connection stands; "mv-network-close" if it is refused, the name is not
  // found, or no answer comes within the connect time out. Messages sent to it
  // meanwhile wait until it opens. The table's limit counts it too.
  int connect(const std::string& host, int port);

  // Closes one connection, or all of them with -1, raising "mv-network-close"
  // for each: 0, or -1 if the socket is not connected or won't close.
  int close(int socket = -1);

  // With -1: whether any connection stands; else whether this socket is one.
  bool isConnected(int socket = -1) const;
  // The connected sockets in order of connection.
  std::vector<int> getConnections() const;

  void setMaxConnections(int new_max_connections);
  int getMaxConnections() const;

  // A number the game keeps with a connection (a player's number, or how far
  // the peer has been brought up to date); 0 when it connects. -1 if the
  // socket is not connected.
  int setConnectionValue(int socket, int value);
  int getConnectionValue(int socket) const;

  // Sends raw bytes: 0 if all went out, else -1. A connection found closed is
  // closed here too; a part sent is not followed by the rest.
  int send(const void* buffer, int bytes, int socket);

  // Sends a message that the peer's manager raises as an event of `label`,
  // one of MESSAGE_LABELS: 0, or -1. What the socket can't take at once waits,
  // whole and in order, for the next frames; a connection with more waiting
  // than its cap is closed.
  int sendMessage(const std::string& label, const std::string& payload, int socket);

  // Keeps a copy of the message to send from game step `step` on: 0, or -1.
  int queueMessage(const std::string& label, const std::string& payload, int socket, int step);

  // Sends every queued message that is due, in each connection's order (a
  // message not yet due holds back those behind it), and writes what each
  // socket takes of what waits. 0, or -1 for each connection that failed.
  int flushDelayed();

  // Takes the connections being opened a step further, reads what has
  // arrived on every open one without waiting, and hands each whole message to
  // the objects that want its label, at most the delivery cap a connection a
  // poll; the rest wait for the next poll. A peer that went away, broke the
  // frame rules or took longer than the stall limit over one message is
  // closed. Answers how many messages were handed on.
  int receive();

  // How many polls a message may take from its first byte to its last.
  void setStallLimit(int polls);
  // The most messages, and bytes of them, handed on a connection a poll.
  void setDeliveryCap(int messages, std::size_t bytes);
  // The most bytes that may wait to go to one connection before it is closed.
  void setOutgoingCap(std::size_t bytes);
  // Bytes sent to a connection that its socket has not yet taken; 0 if none is connected.
  std::size_t getWaitingBytes(int socket) const;
  // How long a connection may take to open, in milliseconds.
  void setConnectTimeout(int milliseconds);

 private:
  NetworkManager();
  int indexOf(int socket) const;
  // The index of the connection with this serial, if it is still in the table; else -1.
  int indexOfLive(int socket, unsigned serial) const;
  int addConnection(Connection connection);
  int closeAt(std::size_t index);
  void advanceOpenings();
  void raiseConnected(int socket);
  // Writes what waits for the connection at `index`: 0, or -1 when it failed,
  // or holds more than its cap, and was closed.
  int writeWaiting(std::size_t index, const char* caller);
  // The count of bytes the system took, or -1, with the lines of a failed send.
  long sendBytes(const void* buffer, std::size_t bytes, int socket);
  void sayFailedSend(const char* caller, int socket, int error);
  std::string frameOrSay(const char* caller, const std::string& label,
                         const std::string& payload) const;
  int receiveFrom(int socket, unsigned serial);
  int handOnMessages(int socket, unsigned serial);
  void closeIfPeerMisbehaved(std::size_t index, Connection::ReadOutcome outcome);

  int sock;
  int max_connections;
  std::vector<Connection> connections;
  int stall_limit;
  int delivery_messages;
  std::size_t delivery_bytes;
  std::size_t outgoing_cap;
  int connect_timeout_ms;
  unsigned next_serial;
  // One read's worth of bytes, kept to spare an allocation per read.
  std::vector<char> read_buffer;
};

}  // namespace mv
