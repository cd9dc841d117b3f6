#include "velk/platform/ErrorLog.h"

namespace Velk {
namespace {

std::FILE* currentLog = nullptr;

}  // namespace

std::FILE* ErrorLog::getLogAccess() { return currentLog; }

void ErrorLog::setLogAccess(std::FILE* log) { currentLog = log; }

}  // namespace Velk
