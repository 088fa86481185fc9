#include "support/formatta.h"
