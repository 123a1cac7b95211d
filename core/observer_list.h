// Lists of observers that bear anything happening while they are told: observers that come and go,
// telling within telling, and the end of the list itself.
// Owns: ObserverList.
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tess {

// Keeps an observation up; ends it when it goes. It may outlive the list it came from.
class [[nodiscard]] Subscription {
 public:
  Subscription() = default;
  explicit Subscription(std::function<void()> end) : end_(std::move(end)) {}
  ~Subscription() { cancel(); }
  Subscription(Subscription&& other) noexcept : end_(std::exchange(other.end_, nullptr)) {}
  Subscription& operator=(Subscription&& other) noexcept {
    if (this == &other) return *this;
    cancel();
    end_ = std::exchange(other.end_, nullptr);
    return *this;
  }

  void cancel() {
    if (auto end = std::exchange(end_, nullptr)) end();
  }

 private:
  std::function<void()> end_;
};

template <class Observer>
class ObserverList {
 public:
  ObserverList() : state_(std::make_shared<State>()) {}
  ~ObserverList() { std::fill(state_->observers.begin(), state_->observers.end(), nullptr); }
  ObserverList(const ObserverList&) = delete;
  ObserverList& operator=(const ObserverList&) = delete;

  // `observer` hears everything told from now on, until the subscription ends.
  Subscription add(Observer& observer) {
    state_->observers.push_back(&observer);
    return Subscription([weak = std::weak_ptr<State>(state_), &observer] {
      if (const auto state = weak.lock()) state->remove(&observer);
    });
  }

  bool empty() const { return state_->observers.empty(); }

  // Calls `call` for each observer in the order they came. Those that come meanwhile are left out,
  // and none is called any more once the list is gone.
  template <class Call>
  void tell(Call call) const {
    const std::shared_ptr<State> state = state_;
    const Telling telling(*state);
    const std::size_t present = state->observers.size();
    for (std::size_t at = 0; at < present; ++at) {
      if (Observer* observer = state->observers[at]) call(*observer);
    }
  }

 private:
  // Places are only emptied while anybody is being told, and closed up afterwards.
  struct State {
    void remove(Observer* observer) {
      const auto found = std::find(observers.begin(), observers.end(), observer);
      if (found != observers.end()) *found = nullptr;
      closeUp();
    }
    void closeUp() {
      if (telling == 0) std::erase(observers, nullptr);
    }

    std::vector<Observer*> observers;
    int telling = 0;
  };

  struct Telling {
    explicit Telling(State& told) : state(told) { ++state.telling; }
    ~Telling() {
      --state.telling;
      state.closeUp();
    }
    Telling(const Telling&) = delete;
    Telling& operator=(const Telling&) = delete;
    State& state;
  };

  std::shared_ptr<State> state_;
};

}  // namespace tess
