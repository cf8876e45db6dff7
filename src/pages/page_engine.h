#pragma once

#include <memory>

namespace core {
class Instance;
}

namespace host {
class ScriptControl;
}

namespace pages {

// The engine in which pages run. It is made at the first page, and keeps every page's code for the
// rest of the run. Owned by the plug-in.
class PageEngine {
  public:
    explicit PageEngine(core::Instance& instance);
    ~PageEngine();
    PageEngine(const PageEngine&) = delete;
    PageEngine& operator=(const PageEngine&) = delete;

    // Makes the engine: the host is known to pages as `hs`, its members without a name, and the
    // procedure `setObjects` lets pages reach the present `Request` and `Response`. A failure is
    // logged.
    void HTMLInit();

    // None before the first page. Shared with a call that runs: the engine outlives its own calls.
    [[nodiscard]] const std::shared_ptr<host::ScriptControl>& engine() const noexcept {
        return engine_;
    }

    // Forgets the engine with all its pages, as a reload of the settings does; the next page makes
    // a new one.
    void release() noexcept { engine_.reset(); }

  private:
    core::Instance& instance_;
    std::shared_ptr<host::ScriptControl> engine_;
};

}  // namespace pages
