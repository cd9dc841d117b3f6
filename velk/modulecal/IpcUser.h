#pragma once

#include "velk/layer/HwRecordBlock.h"

namespace Velk {

/// User data of the controller board: bytes whose meaning the user defines.
template <std::size_t N>
struct VELK_RECORD UserRecord {
  HwSDatablockHeader header;
  unsigned char data[N];

  bool operator==(const UserRecord&) const = default;
};

using HwSDatablockIpcUser10000 = UserRecord<48>;
using HwSDatablockIpcUser10040 = UserRecord<86>;
static_assert(sizeof(HwSDatablockIpcUser10000) == 56 && sizeof(HwSDatablockIpcUser10040) == 94);

template <class Record>
inline constexpr FieldInfo userFields[] = {VELK_FIELD(Record, data).personal()};

namespace detail {
/// Writes the text of a user record: its bytes as numbers, one per line.
VELK_EXPORT std::ostream& printUserData(std::ostream& os, ConstBytes block, const RecordTraits& traits);
}  // namespace detail

template <class Record>
class VELK_EXPORT HwUserBlock : public HwTypedRecordBlock<Record> {
 public:
  std::ostream& printToStream(std::ostream& os) override {
    return detail::printUserData(os, this->bytes(), this->ownTraits());
  }

 protected:
  using HwTypedRecordBlock<Record>::HwTypedRecordBlock;
};

/// Shares its id with the reference oscillator's value.
class VELK_EXPORT HwDatablockIpcUser10000 : public HwUserBlock<HwSDatablockIpcUser10000> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 10000,
      .refusal = "HwSDatablockIpcUser10000",
      .keys = {"IPC_USER_10000"},
      .fields = userFields<HwSDatablockIpcUser10000>,
      .acceptance = Acceptance::ChecksumOrHeader,
      .comments = {"# Das sind die IPC User 10000 Daten"},
      .idWidth = 15,
  });

  HwDatablockIpcUser10000() : HwUserBlock(traits, true) {}
};

class VELK_EXPORT HwDatablockIpcUser10040 : public HwUserBlock<HwSDatablockIpcUser10040> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 10040,
      .refusal = "HwSDatablockIpcUser10040",
      .keys = {"IPC_USER_10040"},
      .fields = userFields<HwSDatablockIpcUser10040>,
      .acceptance = Acceptance::ChecksumOrHeader,
      .comments = {"# Das sind die IPC User 10040 Daten"},
      .idWidth = 15,
  });

  HwDatablockIpcUser10040() : HwUserBlock(traits, true) {}
};

}  // namespace Velk
