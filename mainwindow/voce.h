#pragma once
// Entry-level logic of the generate cycle: placeholder until it lands.
