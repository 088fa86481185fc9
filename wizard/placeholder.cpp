#include "wizard/catalogo_ai.h"
