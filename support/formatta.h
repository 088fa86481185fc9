#pragma once
// FormattaEscape: placeholder until it lands.
