// Handing a file over.
#include "shell/qt/instance_door.h"

#include <QFile>
#include <algorithm>
#include <array>
#include <cstring>
#include <poll.h>
#include <string_view>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

namespace tess {

namespace {

constexpr std::size_t kLongestPath = 4095;
constexpr int kPatience = 1000;  // milliseconds that either side waits for the other
constexpr char kTaken = 'y';

// Nothing when the path is too long for a socket.
bool fillAddress(sockaddr_un& address, const std::string& path) {
  address = {};
  address.sun_family = AF_UNIX;
  if (path.empty() || path.size() >= sizeof address.sun_path) return false;
  std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
  return true;
}

Descriptor newSocket(int flags = 0) {
  return Descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | flags, 0));
}

void removeSocket(const std::string& path) {
  QFile(QString::fromStdString(path)).remove();
}

const sockaddr* plain(const sockaddr_un& address) {
  return reinterpret_cast<const sockaddr*>(&address);
}

bool isOwn(const Descriptor& peer) {
  ucred who{};
  socklen_t size = sizeof who;
  const bool known = ::getsockopt(peer.number(), SOL_SOCKET, SO_PEERCRED, &who, &size) == 0;
  return known && who.uid == ::getuid();
}

bool hasSomething(const Descriptor& peer) {
  pollfd waiting{.fd = peer.number(), .events = POLLIN, .revents = 0};
  return ::poll(&waiting, 1, kPatience) > 0;
}

// A line without its end, which the other side sends at one go; empty when none comes in time.
std::string lineFrom(const Descriptor& peer) {
  std::array<char, kLongestPath + 1> text{};
  if (!hasSomething(peer)) return {};
  const ssize_t size = ::recv(peer.number(), text.data(), text.size(), 0);
  const std::string_view line(text.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
  const std::size_t end = line.find('\n');
  return end + 1 == line.size() ? std::string(line.substr(0, end)) : std::string();
}

bool send(const Descriptor& peer, std::string_view text) {
  return ::send(peer.number(), text.data(), text.size(), MSG_NOSIGNAL) ==
         static_cast<ssize_t>(text.size());
}

// Who has waited in vain has told its operator so, and ended.
bool hasGone(const Descriptor& peer) {
  pollfd waiting{.fd = peer.number(), .events = POLLHUP, .revents = 0};
  return ::poll(&waiting, 1, 0) > 0;
}

}  // namespace

InstanceDoor::InstanceDoor(std::string path)
    : path_(std::move(path)), listening_(newSocket(SOCK_NONBLOCK)) {
  sockaddr_un address;
  if (!listening_.isOpen() || !fillAddress(address, path_)) return;
  removeSocket(path_);
  const mode_t before = ::umask(S_IRWXG | S_IRWXO);
  const bool bound = ::bind(listening_.number(), plain(address), sizeof address) == 0;
  ::umask(before);
  if (!bound || ::listen(listening_.number(), 4) != 0) return;
  notifier_ = std::make_unique<QSocketNotifier>(listening_.number(), QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { admit(); });
}

InstanceDoor::~InstanceDoor() {
  if (isOpen()) removeSocket(path_);
}

// The other side has written before it waits, so that nobody holds the window up for long.
void InstanceDoor::admit() {
  const Descriptor peer(::accept4(listening_.number(), nullptr, nullptr, SOCK_CLOEXEC));
  if (!peer.isOpen() || !isOwn(peer) || hasGone(peer)) return;
  const std::string file = lineFrom(peer);
  if (file.empty() || file.find('\0') != std::string::npos) return;
  if (onFile && onFile(file)) send(peer, std::string_view(&kTaken, 1));
}

bool handToRunning(const std::string& path, const std::string& file) {
  const Descriptor peer = newSocket();
  sockaddr_un address;
  const bool fits = !file.empty() && file.size() <= kLongestPath &&
                    file.find('\n') == std::string::npos && fillAddress(address, path);
  if (!fits || !peer.isOpen()) return false;
  if (::connect(peer.number(), plain(address), sizeof address) != 0 || !isOwn(peer)) return false;
  if (!send(peer, file + "\n") || !hasSomething(peer)) return false;
  char answer = 0;
  return ::recv(peer.number(), &answer, 1, 0) == 1 && answer == kTaken;
}

}  // namespace tess
