#pragma once

#include "ExchangeSupport.h"
#include "TestSupport.h"
#include "velk/tables/LornRfboTables.h"
#include "velk/tables/QelRfboTables.h"

namespace VelkTest {

using QelRegisters = Velk::HwDatablockQelRfboAttRegData;
using Points = Velk::HwDatablockLornRfboAttCalFreq;
using Attenuations = Velk::HwDatablockLornRfboAttRegAttenuation;
using Registers = Velk::HwDatablockLornRfboAttRegData;
using Compensation = Velk::HwDatablockLornRfboTempCompData;
using CompensationPoints = Velk::HwDatablockLornRfboTempCompFreq;

/// Reads a text into a table and returns the messages.
template <class Table>
std::string messagesOf(Table& table, const std::string& text) {
  ConsoleCapture console;
  std::istringstream is(text);
  Table::searchascii(is, table);
  EXPECT_TRUE(is.fail());
  EXPECT_TRUE(table.verifyChecksum());
  EXPECT_EQ(table.getByteArrayData().size(), table.getBlockSize());
  EXPECT_EQ(console.error, "");
  return console.output;
}

template <class Table>
Table fromText(const std::string& text, const std::string& messages = "") {
  Table table(false);
  EXPECT_EQ(messagesOf(table, text), messages) << text;
  return table;
}

}  // namespace VelkTest
