#include "printing/PageSetup.h"
