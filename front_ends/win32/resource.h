#pragma once

// The numbers of what Solvanta.rc.in describes.

#define IDI_SOLVANTA 1
