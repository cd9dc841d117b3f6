// Loads the same libraries as the velk command and exits.
#include "velk/oldstyle/BlockCatalogue.h"

int main() { return Velk::dictionaryRows().empty() ? 1 : 0; }
