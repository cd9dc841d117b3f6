#pragma once

#include <string_view>

#include "velk/containers/ContainerText.h"

namespace Velk::detail {

/// Whether a text holds an S-record.
bool isSRecord(std::string_view contents);

/// Reads S-records: the header, data at addresses of 16, 24 and 32 bits, counts of the data records and entry points
/// (S0 to S3, S5 to S9). A count ends a file as well as an entry point does.
ImageFile readSRecord(QByteArray contents);

/// Writes S-records: the header if there is one, data records of one kind, and the end record. Addresses are below
/// 4 GiB.
QByteArray writeSRecord(const ImageFile& image);

}  // namespace Velk::detail
