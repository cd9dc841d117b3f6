#pragma once

#include "velk/layer/HwCountedBlock.h"

namespace Velk {

/// The accessors of lists of frequency values.
template <class Record>
class VELK_EXPORT HwFrequencyList : public HwCountedBlock<Record> {
 public:
  using Frequency = typename HwCountedBlock<Record>::Value;

  int getNumberOfFreqValues() const { return this->count(); }
  void setNumberOfFreqValues(int n) { this->setListCount(n); }
  Frequency getFrequencyValue(int index) const { return this->value(index); }
  void setFrequencyValue(Frequency frequency, int index) { this->setValue(frequency, index); }

 protected:
  using HwCountedBlock<Record>::HwCountedBlock;
};

}  // namespace Velk
