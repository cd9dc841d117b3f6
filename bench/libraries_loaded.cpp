// Loads the libraries that the velk command loads, and does nothing with them.
#include "velk/oldstyle/BlockCatalogue.h"

int main() { return Velk::dictionaryRows().empty() ? 1 : 0; }
