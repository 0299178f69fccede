#pragma once

// For programs that draw texts: the system's font search keeps what it has read.

extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig"; }
extern "C" const char* __lsan_default_options() { return "print_suppressions=0"; }
