#include "wizard/validazione_ai.h"
