// Handing a file over.
#include "shell/qt/instance_door.h"

#include <QFile>
#include <QTimer>
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
constexpr std::size_t kMostGuests = 8;

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

// Who listens and has no time for anybody leaves his caller waiting for ever otherwise.
void endWaitingInTime(const Descriptor& peer) {
  const timeval patience{.tv_sec = kPatience / 1000, .tv_usec = 0};
  ::setsockopt(peer.number(), SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
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

bool send(const Descriptor& peer, std::string_view text) {
  return ::send(peer.number(), text.data(), text.size(), MSG_NOSIGNAL | MSG_DONTWAIT) ==
         static_cast<ssize_t>(text.size());
}

// Who has waited in vain has told its operator so, and ended.
bool hasGone(const Descriptor& peer) {
  pollfd waiting{.fd = peer.number(), .events = POLLHUP, .revents = 0};
  return ::poll(&waiting, 1, 0) > 0;
}

}  // namespace

// Somebody who has come in. What he says comes when it comes: the window does not wait for it.
class InstanceDoor::Guest {
 public:
  explicit Guest(Descriptor peer)
      : peer_(std::move(peer)), notifier_(peer_.number(), QSocketNotifier::Read) {
    patience_.setSingleShot(true);
    patience_.start(kPatience);
  }

  // Takes in what has come. False when there is no more to be waited for.
  bool listen() {
    std::array<char, kLongestPath + 1> text{};
    const ssize_t size = ::recv(peer_.number(), text.data(), text.size() - said_.size(), 0);
    if (size <= 0) return false;
    said_.append(text.data(), static_cast<std::size_t>(size));
    return said_.size() < text.size() && said_.find('\n') == std::string::npos;
  }

  // The line, without its end; "" when it is none, or more than one.
  std::string file() const {
    const std::size_t end = said_.find('\n');
    const bool isLine = end + 1 == said_.size() && said_.find('\0') == std::string::npos;
    return isLine ? said_.substr(0, end) : std::string();
  }

  const Descriptor& peer() const { return peer_; }
  QSocketNotifier& notifier() { return notifier_; }
  QTimer& patience() { return patience_; }

 private:
  Descriptor peer_;
  std::string said_;
  QSocketNotifier notifier_;
  QTimer patience_;
};

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

// Where many come at once and say nothing, the one who has been silent longest goes.
void InstanceDoor::admit() {
  Descriptor peer(::accept4(listening_.number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
  if (!peer.isOpen() || !isOwn(peer)) return;
  if (guests_.size() == kMostGuests) guests_.pop_front();
  Guest& guest = *guests_.emplace_back(std::make_unique<Guest>(std::move(peer)));
  // He is out of sight at once, and gone when the event that he was heard by has ended.
  const auto leave = [this, &guest] { showOut(guest); };
  QObject::connect(&guest.patience(), &QTimer::timeout, &guest.patience(), leave,
                   Qt::QueuedConnection);
  QObject::connect(&guest.notifier(), &QSocketNotifier::activated, [this, &guest] { hear(guest); });
}

void InstanceDoor::hear(Guest& guest) {
  if (guest.listen()) return;
  guest.notifier().setEnabled(false);
  answer(guest);
  guest.patience().start(0);
}

void InstanceDoor::answer(const Guest& guest) {
  const std::string file = guest.file();
  if (file.empty() || hasGone(guest.peer())) return;
  if (onFile && onFile(file)) send(guest.peer(), std::string_view(&kTaken, 1));
}

void InstanceDoor::showOut(const Guest& guest) {
  guests_.remove_if([&guest](const auto& each) { return each.get() == &guest; });
}

bool handToRunning(const std::string& path, const std::string& file) {
  const Descriptor peer = newSocket();
  sockaddr_un address;
  const bool fits = !file.empty() && file.size() <= kLongestPath &&
                    file.find('\n') == std::string::npos && fillAddress(address, path);
  if (!fits || !peer.isOpen()) return false;
  endWaitingInTime(peer);
  if (::connect(peer.number(), plain(address), sizeof address) != 0 || !isOwn(peer)) return false;
  if (!send(peer, file + "\n") || !hasSomething(peer)) return false;
  char answer = 0;
  return ::recv(peer.number(), &answer, 1, 0) == 1 && answer == kTaken;
}

}  // namespace tess
