#pragma once

#include "velk/layer/HwRecordBlock.h"

namespace Velk {

/// A block of which a memory holds several, one for each path or copy, with consecutive ids.
template <class Block>
class VELK_EXPORT HwInstance : public Block {
 public:
  /// Returns the path or copy that the block was constructed for.
  int getInstance() const { return instance_; }

 protected:
  HwInstance(const typename Block::Traits& traits, int instance, bool stopConversionOnError)
      : Block(traits, stopConversionOnError, static_cast<unsigned short>(traits.id + instance)), instance_(instance) {}

 private:
  int instance_;
};

}  // namespace Velk
