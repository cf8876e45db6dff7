#include <string>

#include "core/instance.h"
#include "fuzz/expect.h"
#include "support/fake_platform.h"
#include "support/memory_host.h"
#include "udp/client_link.h"
#include "unit/client_message.h"

// What may arrive at both ends of the link to client programs: at the daemon's port, where the
// number of clients stays that of the senders, and at a client.
namespace {

constexpr std::int32_t kPort = 4550;

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string datagram(fuzz::as_text(data, size));
    support::FakeMachine machine;
    support::MemoryHost host;
    core::Instance instance(machine.platform());
    instance.attach(host, &host);
    instance.log.attach(&host);
    instance.log.set_debug_log(true);
    udp::ClientLink link(instance);
    link.InitUDP();
    support::UdpPeer& client = machine.network.udp("10.0.0.90", kPort);
    client.send(support::MemoryNetwork::kHouse, kPort, datagram);
    client.send(support::MemoryNetwork::kHouse, kPort, datagram);
    machine.pump.run_for(std::chrono::milliseconds(10));
    fuzz::expect(link.clients().ClientMax() <= 1, "one sender is one client at most");
    client.send(support::MemoryNetwork::kHouse, kPort, "\1");
    machine.pump.run_for(std::chrono::milliseconds(10));
    fuzz::expect(link.UDPClientAvailable("10.0.0.90"), "after any datagram a client subscribes");
    std::string name(datagram);
    std::string number(datagram);
    (void)link.UDPSendCID(name, number, "");
    machine.pump.run_for(std::chrono::milliseconds(10));
    fuzz::expect(client.received().size() == 1, "the client gets the call");
    (void)unit::parse_client_message(client.received().front());
    (void)unit::parse_client_message(datagram);
    return 0;
}
