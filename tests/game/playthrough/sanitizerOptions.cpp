// In the sanitized build freed memory waits in a quarantine before it is
// handed out again, so that a late use of it is caught. At its default of
// 256 MB the quarantine would swell the resident memory of a long play far
// beyond anything the game holds, and hide a real growth; 16 MB still holds
// what many hundreds of frames free, an end screen's worth and more.
#if defined(__SANITIZE_ADDRESS__)
extern "C" const char* __asan_default_options() { return "quarantine_size_mb=16"; }
#endif
