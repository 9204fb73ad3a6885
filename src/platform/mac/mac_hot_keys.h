#pragma once
#include <memory>

#include "platform/hot_keys.h"

namespace quill::platform::mac {

/// System-wide keys through Carbon's hot-key service. Made, used and destroyed on the main thread; the
/// destructor gives the keys back.
class MacHotKeys final : public HotKeyRegistrar {
 public:
  MacHotKeys();
  ~MacHotKeys() override;

  void OnPressed(std::function<void(std::uint32_t identifier)> handler) override;
  /// `report` is called once, before the return.
  void Bind(std::vector<HotKey> keys, Report report) override;

 private:
  struct Parts;
  std::unique_ptr<Parts> m_parts;
};

}  // namespace quill::platform::mac
