// Peers of our own for tests of the engine's sockets: plain blocking sockets
// over loopback that speak raw bytes.
#pragma once

namespace mv_test {

// A socket connected to `port` on 127.0.0.1. A `receive_buffer` above 0 asks
// for a receive buffer that small before connecting, as a slow reader has.
int connectLoopback(int port, int receive_buffer = 0);

}  // namespace mv_test
