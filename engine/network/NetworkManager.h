// Connected sockets and what travels over them. As a server it listens on a
// port and takes new connections once a frame; as a client it connects to one.
// Each connection has a queue of messages due at later steps and a reader that
// puts incoming messages back together, each handed to the objects that want
// its label. Nothing here waits for a peer: every socket is non-blocking.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <vector>

#include "Manager.h"
#include "MessageReader.h"

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

  // Connects to a server and raises "mv-network-connect": the socket, or -1.
  // The table's limit counts this connection too.
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
  // one of MESSAGE_LABELS: 0, or -1. A message that goes out only in part
  // would put the peer's stream out of step, so the connection is closed.
  int sendMessage(const std::string& label, const std::string& payload, int socket);

  // Keeps a copy of the message to send from game step `step` on: 0, or -1.
  int queueMessage(const std::string& label, const std::string& payload, int socket, int step);

  // Sends every queued message that is due, in each connection's order; a
  // message not yet due holds back those behind it. The sum of the sends' results.
  int flushDelayed();

  // Reads what has arrived on every connection without waiting, and hands
  // each whole message to the objects that want its label. A peer that went
  // away, broke the frame rules or left a message half-sent for the stall
  // limit is closed. Answers how many messages were handed on.
  int receive();

  // How many polls a peer may stay silent in the middle of a message.
  void setStallLimit(int polls);

 private:
  // A message waiting for its step, framed and ready to go.
  struct DelayedMessage {
    std::string data;
    int step;
  };

  // What has come in on one connection and is not yet handed on.
  struct Incoming {
    MessageReader reader;
    // Polls in a row that brought nothing while a message was half here.
    int quiet_polls;
    // Tells this connection apart from a later one that gets the same socket number.
    unsigned serial;
  };

  enum ReadOutcome { STILL_OPEN, PEER_GONE, READ_FAILED };

  NetworkManager();
  int indexOf(int socket) const;
  // The index of the connection with this serial, if it is still in the table; else -1.
  int indexOfLive(int socket, unsigned serial) const;
  void addConnection(int socket);
  int closeAt(std::size_t index);
  // The count of bytes the system took, or -1, with the lines of a failed send.
  long sendBytes(const void* buffer, std::size_t bytes, int socket);
  int sendFrame(const std::string& frame, int socket);
  std::string frameOrSay(const char* caller, const std::string& label,
                         const std::string& payload) const;
  int receiveFrom(int socket, unsigned serial);
  ReadOutcome readWhatArrived(std::size_t index);
  int deliverMessages(int socket, unsigned serial);
  void closeIfPeerMisbehaved(std::size_t index, ReadOutcome outcome);

  int sock;
  int max_connections;
  std::vector<int> connections;
  std::vector<int> connection_values;
  std::vector<std::deque<DelayedMessage>> pending;
  std::vector<Incoming> incoming;
  int stall_limit;
  unsigned next_serial;
  // One read's worth of bytes, kept to spare an allocation per read.
  std::vector<char> read_buffer;
};

}  // namespace mv
