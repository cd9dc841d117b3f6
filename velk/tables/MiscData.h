#pragma once

#include "velk/tables/TableTemplates.h"

namespace Velk {

/// The payload of a small generic table, after the header.
template <class T, unsigned MaxRows, unsigned MaxCols>
struct VELK_RECORD MiscData {
  unsigned int rows;
  unsigned int cols;
  T values[MaxRows][MaxCols];

  bool operator==(const MiscData&) const = default;
};

namespace detail {

/// A table that differs from others of its shape only in name, id and scale.
template <class Record, class RawType, class ValueType, unsigned MaxRows, unsigned MaxCols, int decimals>
class VELK_EXPORT MiscDataBlock : public HwTypedTableBlock<HwSTable<RawType, MaxRows, MaxCols>, ValueType, decimals> {
  using Base = HwTypedTableBlock<HwSTable<RawType, MaxRows, MaxCols>, ValueType, decimals>;
  static_assert(std::is_same_v<Record, MiscData<RawType, MaxRows, MaxCols>>);
  static_assert(sizeof(HwSDatablockHeader) + sizeof(Record) == sizeof(typename Base::TableImage));

 public:
  MiscDataBlock(unsigned blockId, const char* blockString, double scale)
      : Base({.id = static_cast<unsigned short>(blockId), .key = blockString, .scale = scale}, true) {}
};

}  // namespace detail

/// A small generic table of a microwave module: loop gains, trim values, limits.
template <class Record, class RawType, class ValueType, unsigned MaxRows, unsigned MaxCols>
class VELK_EXPORT HwDatablockTemplate : public detail::MiscDataBlock<Record, RawType, ValueType, MaxRows, MaxCols, 5> {
 public:
  using detail::MiscDataBlock<Record, RawType, ValueType, MaxRows, MaxCols, 5>::MiscDataBlock;
};

/// The same for coarser values. Its checksum is updated like that of any other block.
template <class Record, class RawType, class ValueType, unsigned MaxRows, unsigned MaxCols>
class VELK_EXPORT HwDatablockTemplateWithoutChecksum
    : public detail::MiscDataBlock<Record, RawType, ValueType, MaxRows, MaxCols, 3> {
 public:
  using detail::MiscDataBlock<Record, RawType, ValueType, MaxRows, MaxCols, 3>::MiscDataBlock;
};

/// One of the generic tables: its shape and, in a derived kind, its name, id and scale.
template <template <class, class, class, unsigned, unsigned> class Template, class T, unsigned MaxRows,
          unsigned MaxCols>
struct MiscDataKind {
  using Block = Template<MiscData<T, MaxRows, MaxCols>, T, double, MaxRows, MaxCols>;
  using TableImage = typename Block::TableImage;
};

/// All generic tables of the modules.
namespace MiscDataKinds {

template <unsigned MaxRows, unsigned MaxCols>
using Words = MiscDataKind<HwDatablockTemplate, int, MaxRows, MaxCols>;
template <unsigned MaxRows, unsigned MaxCols>
using Octets = MiscDataKind<HwDatablockTemplateWithoutChecksum, unsigned char, MaxRows, MaxCols>;

// clang-format off
struct PimMwifSattCounter : Octets<1, 2048> { static constexpr TableTraits traits{.id = 11304, .key = "PIM_MWIF_SATT_COUNTER"}; };
struct LoopgainFreq : Words<200, 1> { static constexpr TableTraits traits{.id = 12300, .key = "LOOPGAIN_FREQ", .scale = 0.01}; };
struct LoopgainPk : Words<1, 200> { static constexpr TableTraits traits{.id = 12301, .key = "LOOPGAIN_PK", .scale = 1000.0}; };
struct LoopgainPValueBasePk : Words<1, 200> { static constexpr TableTraits traits{.id = 12302, .key = "LOOPGAIN_P_VALUE_BASE_PK", .scale = 1000.0}; };
struct LoopgainIValueBasePk : Words<1, 200> { static constexpr TableTraits traits{.id = 12303, .key = "LOOPGAIN_I_VALUE_BASE_PK", .scale = 1000.0}; };
struct LoopgainIValueOffsetPk : Words<1, 200> { static constexpr TableTraits traits{.id = 12304, .key = "LOOPGAIN_I_VALUE_OFFSET_PK"}; };
struct LoopgainPkList : Words<50, 1> { static constexpr TableTraits traits{.id = 12305, .key = "LOOPGAIN_PK_LIST"}; };
struct LoopgainPValueBasePkList : Words<50, 200> { static constexpr TableTraits traits{.id = 12306, .key = "LOOPGAIN_P_VALUE_BASE_PK_LIST", .scale = 1000.0}; };
struct LoopgainIValueBasePkList : Words<50, 200> { static constexpr TableTraits traits{.id = 12307, .key = "LOOPGAIN_I_VALUE_BASE_PK_LIST", .scale = 1000.0}; };
struct LoopgainIValueOffsetPkList : Words<50, 200> { static constexpr TableTraits traits{.id = 12308, .key = "LOOPGAIN_I_VALUE_OFFSET_PK_LIST"}; };
struct PimDconVtrimValue : Words<10, 1> { static constexpr TableTraits traits{.id = 12310, .key = "PIM_DCON_VTRIM_VALUE"}; };
struct PimDconLevelpre2 : Words<1, 1> { static constexpr TableTraits traits{.id = 12311, .key = "PIM_DCON_LEVELPRE2"}; };
struct KivFreqcntrTcxoRefCalValue : Words<10, 1> { static constexpr TableTraits traits{.id = 12312, .key = "KIV_FREQCNTR_TCXO_REF_CAL_VALUE"}; };
struct LimiterFrequencyNodeGhz : Words<100, 1> { static constexpr TableTraits traits{.id = 12313, .key = "LIMITER_FREQUENCY_NODE_GHZ", .scale = 0.00001}; };
struct LimiterMaxVoltage : Words<100, 1> { static constexpr TableTraits traits{.id = 12314, .key = "LIMITER_MAX_VOLTAGE", .scale = 0.00001}; };
struct LimiterMaxVoltagePumOn : Words<100, 1> { static constexpr TableTraits traits{.id = 12315, .key = "LIMITER_MAX_VOLTAGE_PUM_ON", .scale = 0.00001}; };
struct PimTemperature : Words<10, 1> { static constexpr TableTraits traits{.id = 15022, .key = "PIM_TEMPERATURE", .scale = 100.0}; };
struct PimTempcorrLevel : Words<10, 1> { static constexpr TableTraits traits{.id = 15023, .key = "PIM_TEMPCORR_LEVEL", .scale = 0.01}; };
struct DetDiffTemperature : Words<1, 1> { static constexpr TableTraits traits{.id = 15024, .key = "DET_DIFF_TEMPERATURE", .scale = 100.0}; };
struct DetTempcorrLowFreq : Words<1, 1> { static constexpr TableTraits traits{.id = 15025, .key = "DET_TEMPCORR_LOW_FREQ", .scale = 100.0}; };
struct DetTempcorrHighFreq : Words<1, 1> { static constexpr TableTraits traits{.id = 15026, .key = "DET_TEMPCORR_HIGH_FREQ", .scale = 100.0}; };
struct DetTempcorrMinFreqValues : Words<10, 10> { static constexpr TableTraits traits{.id = 15027, .key = "DET_TEMPCORR_MIN_FREQ_VALUES", .scale = 100.0}; };
struct DetTempcorrMaxFreqValues : Words<10, 10> { static constexpr TableTraits traits{.id = 15028, .key = "DET_TEMPCORR_MAX_FREQ_VALUES", .scale = 100.0}; };
// clang-format on

}  // namespace MiscDataKinds
}  // namespace Velk
