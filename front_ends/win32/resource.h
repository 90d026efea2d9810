#pragma once

// The numbers of what Solvanta.rc holds.

#define IDI_SOLVANTA 1
