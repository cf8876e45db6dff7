#pragma once

#include <string>

namespace host {
class Files;
class HostInterface;
class ScriptControls;
}  // namespace host

namespace app {

// Runs the script lines of events, each on an engine of its own that knows the host as `hs`:
//
//     &hs.WriteLog "House", "Good morning"         statements, behind the "&"
//     greet.vbs                                    a file of the folder Scripts
//
// Owned by the daemon.
class ScriptLines {
  public:
    // All must outlive the object.
    ScriptLines(host::ScriptControls& controls, host::HostInterface& hs, host::Files& files)
        : controls_(controls), hs_(hs), files_(files) {}

    // May pump. Throws: RunTimeError of the script, with its place in the description; 53 for a
    // file that is not there.
    void run(const std::string& line);

  private:
    host::ScriptControls& controls_;
    host::HostInterface& hs_;
    host::Files& files_;
};

}  // namespace app
