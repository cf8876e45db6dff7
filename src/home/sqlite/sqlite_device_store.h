#pragma once

#include "home/device_store.h"
#include "home/sqlite/database.h"

namespace home {

// Devices in the home's database, texts as UTF-8. A change is committed when the call returns and
// survives the end of the program at any point.
class SqliteDeviceStore : public DeviceStore {
  public:
    // The database, of `open_home_database`, must outlive the store.
    explicit SqliteDeviceStore(Database& database);

    [[nodiscard]] StoredDevices load() override;
    void add(const DeviceRecord& record) override;
    void save_fields(host::DeviceRef ref, const host::DeviceFields& fields) override;
    void save_text(host::DeviceRef ref, std::string_view text) override;
    void save_state(host::DeviceRef ref, const DeviceState& state) override;
    void remove(host::DeviceRef ref) override;

  private:
    Database& database_;
    Statement insert_;
    Statement update_fields_;
    Statement update_text_;
    Statement update_state_;
    Statement delete_;
};

}  // namespace home
