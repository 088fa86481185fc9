#include "wizard/composizione_ai.h"
