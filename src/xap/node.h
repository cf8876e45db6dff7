#pragma once

#include <functional>

#include "callerid/caller_id.h"
#include "xap/bsc_endpoints.h"
#include "xap/filters.h"
#include "xap/receiver.h"
#include "xap/xap_cid.h"
#include "xap/xap_message_queue.h"

namespace xap {

// The house as a node of an xAP network: what comes in, the units as endpoints, and what goes out.
// Owned by the plug-in instance. The transport is not here: messages arrive by `OnXapMessage` of
// the receiver and leave by the callback object.
class Node {
  public:
    struct Services {
        core::Instance& instance;
        fleet::Fleet& fleet;
        devices::HostDevices& host_devices;
        devices::StatusBoard& status_board;
        devices::Actions& actions;
        appliance::DeviceCommandTarget& device_commands;
        callerid::CallerId& caller_id;
        XapMessageQueue::BSCTimer bsc_timer;
        Filters::QueueFilterEvent queue_filter_event;
    };

    // From now on states and calls of the house go to the network as well.
    explicit Node(const Services& services)
        : queue_(services.instance, services.bsc_timer),
          endpoints_({services.instance, services.fleet, services.host_devices,
                      services.device_commands, queue_}),
          cid_(services.instance, queue_),
          filters_(services.instance, services.queue_filter_event),
          receiver_({services.instance, services.fleet, services.actions, services.status_board,
                     services.caller_id.call(), services.caller_id.dispatch(), filters_,
                     endpoints_}) {
        services.status_board.set_listener(&endpoints_);
        services.caller_id.dispatch().set_xap(&cid_);
    }

    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;

    [[nodiscard]] XapMessageQueue& queue() noexcept { return queue_; }

    [[nodiscard]] BscEndpoints& endpoints() noexcept { return endpoints_; }

    [[nodiscard]] Filters& filters() noexcept { return filters_; }

    [[nodiscard]] Receiver& receiver() noexcept { return receiver_; }

  private:
    XapMessageQueue queue_;
    BscEndpoints endpoints_;
    XapCid cid_;
    Filters filters_;
    Receiver receiver_;
};

}  // namespace xap
