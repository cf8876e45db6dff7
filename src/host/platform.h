#pragma once

#include "host/protection.h"

namespace host {

class Clock;
class Desktop;
class Files;
class ImageResizer;
class Network;
class PageFetcher;
class Pump;
class Random;
class ScriptControls;
class SerialPorts;
class Speech;
class UserStore;

// Everything that the logic expects of the machine, gathered for the one object that is started
// on it. The program owns the parts; all of them outlive the plug-in.
struct Platform {
    Pump& pump;
    Clock& clock;
    Random& random;
    Files& files;
    Network& network;
    PageFetcher& page_fetcher;
    Speech& speech;
    ImageResizer& image_resizer;
    UserStore& user_store;
    Desktop& desktop;
    ScriptControls& script_controls;
    SerialPorts& serial_ports;
    Protection protection;
};

}  // namespace host
