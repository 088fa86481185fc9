#pragma once
// The 240-byte options record: placeholder until it lands.
