#pragma once
// placeholder until it lands
