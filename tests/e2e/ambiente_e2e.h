// Shared start of the end-to-end test programs: offscreen Qt application with the
// reference barcode fonts of KRT_FONT_TEST registered.
#pragma once

// Number of test fonts registered from KRT_FONT_TEST (0 when none could be loaded).
int FontDiProvaCaricati();
