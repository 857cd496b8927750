#include "loopbackPeer.h"

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <cstdint>

namespace mv_test {

int connectLoopback(int port, int receive_buffer) {
  const int peer = ::socket(AF_INET, SOCK_STREAM, 0);
  if (receive_buffer > 0) {
    setsockopt(peer, SOL_SOCKET, SO_RCVBUF, &receive_buffer, sizeof receive_buffer);
  }
  sockaddr_in where{};
  where.sin_family = AF_INET;
  where.sin_port = htons(static_cast<std::uint16_t>(port));
  where.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  EXPECT_EQ(::connect(peer, reinterpret_cast<sockaddr*>(&where), sizeof where), 0);
  return peer;
}

}  // namespace mv_test
