#include "velk/tables/ObelTables.h"

#include <cstring>

#include "velk/layer/RecordText.h"

namespace Velk {
namespace {

constexpr std::size_t quadDacValues = std::extent_v<decltype(HwSDatablockObelWIQQuadDac::values)>;
constexpr std::size_t sensorValues = std::extent_v<decltype(HwSDatablockObelWiqSensorData::a)>;

}  // namespace

std::ostream& HwDatablockOBELDelay::printToStream(std::ostream& os) {
  constexpr std::size_t labelWidth = 13;
  detail::TextWriter text(os);
  detail::printHeading(text, bytes(), traits);
  for (const bool q : {false, true}) {
    detail::printKey(text, obelDelayFields[q ? 1 : 0], labelWidth).general(getDelay(q)).endLine();
  }
  text.endLine();
  return os;
}

HwDatablockObelWIQQuadDac::HwDatablockObelWIQQuadDac(bool stopConversionOnError)
    : HwCountedBlock(traits, stopConversionOnError) {
  store<unsigned int>(offsetof(HwSDatablockObelWIQQuadDac, count), quadDacValues);
}

void HwDatablockObelWIQQuadDac::getObelWiqQuadDacData(double* out, bool& valid) {
  valid = verifyChecksum();
  if (out == nullptr) return;
  for (std::size_t i = 0; i < quadDacValues; ++i) out[i] = value(static_cast<std::int64_t>(i));
}

void HwDatablockObelWIQQuadDac::setObelWiqQuadDacData(const double* in) {
  if (in == nullptr) return;
  for (std::size_t i = 0; i < quadDacValues; ++i) setValue(in[i], static_cast<std::int64_t>(i), false);
  storeFreshChecksum();
}

HwDatablockObelWiqSensorData::HwDatablockObelWiqSensorData(bool stopConversionOnError)
    : HwTypedRecordBlock(traits, stopConversionOnError) {
  store<unsigned int>(offsetof(HwSDatablockObelWiqSensorData, count), sensorValues);
}

void HwDatablockObelWiqSensorData::getObelWiqSensorData(double* a, double* b, bool& valid) {
  valid = verifyChecksum();
  if (a == nullptr || b == nullptr) return;
  for (std::size_t i = 0; i < sensorValues; ++i) {
    a[i] = get(&HwSDatablockObelWiqSensorData::a, static_cast<std::int64_t>(i));
    b[i] = get(&HwSDatablockObelWiqSensorData::b, static_cast<std::int64_t>(i));
  }
}

void HwDatablockObelWiqSensorData::setObelWiqSensorData(const double* a, const double* b) {
  if (a == nullptr || b == nullptr) return;
  for (std::size_t i = 0; i < sensorValues; ++i) {
    set(&HwSDatablockObelWiqSensorData::a, a[i], static_cast<std::int64_t>(i), false);
    set(&HwSDatablockObelWiqSensorData::b, b[i], static_cast<std::int64_t>(i), false);
  }
  storeFreshChecksum();
}

std::ostream& HwDatablockObelWiqSensorData::printToStream(std::ostream& os) {
  const std::uint64_t count = get(&HwSDatablockObelWiqSensorData::count);
  detail::TextWriter text(os);
  detail::printHeading(text, bytes(), traits);
  detail::printKey(text, obelWiqSensorFields[0]).number(count).endLine();
  for (std::uint64_t i = 0; i < count && text.ok(); ++i) {
    const auto index = static_cast<std::int64_t>(i);
    text.number(i + 1).text(detail::rowSeparator).general(get(&HwSDatablockObelWiqSensorData::a, index));
    text.text("\t").general(get(&HwSDatablockObelWiqSensorData::b, index)).endLine();
  }
  text.endLine();
  return os;
}

}  // namespace Velk
