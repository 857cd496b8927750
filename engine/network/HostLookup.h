// Looks a host's name up on a thread of its own, so that a slow or dead name
// server never holds up the frame. The answer is read once it is in; a lookup
// given up on runs to its end unseen and frees what it holds.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

namespace mv {

class HostLookup {
 public:
  explicit HostLookup(const std::string& host);

  bool isDone() const;
  // Once done: whether an IPv4 address was found.
  bool isFound() const;
  // Once found: the address, in network byte order.
  std::uint32_t getAddress() const;
  // Once done and not found: the resolver's reason.
  std::string getProblem() const;

 private:
  // Shared with the lookup's thread, which writes it whole before it sets `done`.
  struct Answer {
    std::atomic<bool> done{false};
    bool found = false;
    std::uint32_t address = 0;
    std::string problem;
  };

  std::shared_ptr<Answer> answer;
};

}  // namespace mv
