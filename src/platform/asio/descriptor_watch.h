#pragma once

#include <functional>
#include <memory>

namespace platform {

class AsioPump;

// Tells on the pump when a descriptor that belongs to another library is ready. Owned by that
// library's adapter. It never closes the descriptor, but puts it into non-blocking mode; it must
// be destroyed before the descriptor is closed.
class DescriptorWatch {
  public:
    struct Interest {
        bool read = false;
        bool write = false;
    };

    struct Ready {
        bool read = false;
        bool write = false;
    };

    // `on_ready` runs as an event, again and again as long as the descriptor is ready for what is
    // of interest; an error of the descriptor makes it ready. The watch may be set anew or
    // destroyed there. Nothing is of interest at first.
    // Throws: RunTimeError 57 for a number that is no descriptor. A plain file is always ready.
    DescriptorWatch(AsioPump& pump, int descriptor, std::function<void(Ready)> on_ready);
    DescriptorWatch(const DescriptorWatch&) = delete;
    DescriptorWatch& operator=(const DescriptorWatch&) = delete;
    ~DescriptorWatch();

    void set_interest(Interest interest);

  private:
    class Watcher;

    std::shared_ptr<Watcher> watcher_;  // shared with its waits; released when *this goes
};

}  // namespace platform
