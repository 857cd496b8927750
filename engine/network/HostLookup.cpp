#include "HostLookup.h"

#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <system_error>
#include <thread>

namespace mv {

HostLookup::HostLookup(const std::string& host) : answer(std::make_shared<Answer>()) {
  const auto look_up = [host](std::shared_ptr<Answer> into) {
    addrinfo hints{};
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    const int code = getaddrinfo(host.c_str(), nullptr, &hints, &found);
    if (code == 0) {
      into->found = true;
      into->address = reinterpret_cast<const sockaddr_in*>(found->ai_addr)->sin_addr.s_addr;
      freeaddrinfo(found);
    } else {
      into->problem = gai_strerror(code);
    }
    into->done.store(true, std::memory_order_release);
  };
  try {
    std::thread(look_up, answer).detach();
  } catch (const std::system_error& error) {
    answer->problem = std::string("no thread to look the name up on: ") + error.what();
    answer->done.store(true, std::memory_order_release);
  }
}

bool HostLookup::isDone() const { return answer->done.load(std::memory_order_acquire); }

bool HostLookup::isFound() const { return isDone() && answer->found; }

std::uint32_t HostLookup::getAddress() const { return answer->address; }

std::string HostLookup::getProblem() const { return isDone() ? answer->problem : ""; }

}  // namespace mv
