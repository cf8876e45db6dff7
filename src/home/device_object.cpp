#include "home/device_object.h"

#include <array>

namespace home {

namespace {

using automation::Member;
using automation::method;
using automation::property;
using host::DeviceFields;

template <auto Field>
constexpr Member field(std::string_view name) {
    return property<&DeviceObject::get<Field>, &DeviceObject::set<Field>>(name);
}

}  // namespace

std::shared_ptr<automation::Object> DeviceObject::of(std::shared_ptr<host::Device> device) {
    return device == nullptr ? nullptr : std::make_shared<DeviceObject>(std::move(device));
}

std::span<const Member> DeviceObject::members() const {
    static constexpr auto kMembers = std::to_array<Member>({
        property<&DeviceObject::ref>("ref"),
        field<&DeviceFields::name>("Name"),
        field<&DeviceFields::hc>("hc"),
        field<&DeviceFields::dc>("dc"),
        field<&DeviceFields::location>("Location"),
        field<&DeviceFields::dev_type_string>("dev_type_string"),
        field<&DeviceFields::interface_name>("interface"),
        field<&DeviceFields::iomisc>("iomisc"),
        field<&DeviceFields::misc>("misc"),
        field<&DeviceFields::iotype>("iotype"),
        field<&DeviceFields::values>("Values"),
        field<&DeviceFields::buttons>("buttons"),
    });
    return kMembers;
}

std::span<const Member> DeviceEnumeratorObject::members() const {
    using E = DeviceEnumeratorObject;
    static constexpr auto kMembers = std::to_array<Member>({
        property<&E::Finished>("Finished"),
        property<&E::CountChanged>("CountChanged"),
        method<&E::GetNext>("GetNext"),
    });
    return kMembers;
}

}  // namespace home
