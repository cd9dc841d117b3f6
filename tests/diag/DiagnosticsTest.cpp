#include <QObject>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "TestSupport.h"
#include "velk/diag/HwDebug.h"
#include "velk/diag/HwErrors.h"
#include "velk/platform/Debug.h"
#include "velk/platform/TarnProperties.h"

namespace Velk {
namespace {

using VelkTest::ConsoleCapture;

TEST(DebugOutput, LineCarriesClassAndLevelOfTheTestBeforeIt) {
  ConsoleCapture console;
  HwDebug::init();
  HwDebug::setDebugLevel(HwObject::HwProtocolLevelWarning);
  HwDatablock block(false);
  ASSERT_TRUE(block.chkdbg(HwObject::HwProtocolTypeEeprom, HwObject::HwProtocolLevelWarning));
  block.dbgout("x");
  EXPECT_EQ(HwDebug::getLastClass(), 8);
  EXPECT_EQ(HwDebug::getLastLevel(), 2);
  HwDebug::exit();
  EXPECT_EQ(console.error, "       Warning:               Eeprom, x\n");
}

TEST(DebugOutput, LevelAndMaskFilter) {
  ConsoleCapture console;
  HwDebug::setDebugLevel(HwObject::HwProtocolLevelInfo);
  HwDebug::setDebugMask(1 << HwObject::HwProtocolTypeSpi);
  HwObject object;
  EXPECT_TRUE(object.chkdbg(HwObject::HwProtocolTypeSpi, HwObject::HwProtocolLevelInfo));
  EXPECT_FALSE(object.chkdbg(HwObject::HwProtocolTypeSpi)) << "the object's own level is Debug";
  EXPECT_FALSE(object.chkdbg(HwObject::HwProtocolTypeTimer, HwObject::HwProtocolLevelCritical));
  object.dbgout(HwObject::HwProtocolLevelCritical, "filtered: the class is still Timer");
  HwDebug::exit();
  EXPECT_EQ(console.error, "");
}

TEST(DebugOutput, ClassWithoutANumberKeepsTheOthersInPlace) {
  EXPECT_STREQ(HwObject::classDisplayStr[HwObject::HwProtocolTypeDiagnose], "        Diagnose, ");
  EXPECT_EQ(HwObject::classDisplayStr[13], nullptr);
  EXPECT_EQ(HwObject::levelDisplayStr[6], nullptr);
}

TEST(DebugOutput, ClassNameIsTheObjectName) {
  struct Named : HwObject, QObject {};
  Named named;
  named.setObjectName("eeprom 1");
  EXPECT_EQ(named.getClassName("Block "), "Block eeprom 1");
  EXPECT_EQ(HwDatablock(false).getClassName("Block "), "Block <no QObject class>");
}

TEST(ServiceExtensionLog, AppendsStampedLines) {
  QTemporaryDir directory;
  const QString former = TarnProperties::getSystemRwPath();
  TarnProperties::setSystemRwPath(directory.path());
  HwDebug::srvExtFileOutput("first");
  HwDebug::srvExtFileOutput("second");
  TarnProperties::setSystemRwPath(directory.path() + "/missing");
  HwDebug::srvExtFileOutput("lost");
  TarnProperties::setSystemRwPath(former);
  const std::string log = VelkTest::readFile((directory.path() + "/SrvExt.log").toStdString());
  const QRegularExpression wanted(
      R"(^\d{4}-\d\d-\d\d; \d\d:\d\d -- first\r\n\d{4}-\d\d-\d\d; \d\d:\d\d -- second\r\n$)");
  EXPECT_TRUE(wanted.match(QString::fromStdString(log)).hasMatch()) << log;
}

TEST(Errors, TableIsRegisteredOnce) {
  HwDatablock::registerErrors();
  HwDatablock::registerErrors();
  registerEprDataErrors();
  EXPECT_EQ(ErrorManager()->registrations(), 1);
  const SErrorDefinition* const refused = ErrorManager()->find(1040001);
  ASSERT_NE(refused, nullptr);
  EXPECT_STREQ(refused->message, "Check of new EEPROM data failed, download to Eeprom is denied");
  EXPECT_EQ(refused->severity, 1);
  EXPECT_EQ(refused->group, 202);
  ASSERT_NE(ErrorManager()->find(1040002), nullptr);
  EXPECT_EQ(ErrorManager()->find(-1), nullptr);
}

}  // namespace
}  // namespace Velk
