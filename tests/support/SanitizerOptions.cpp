// What the leak sanitizer leaves out: memory that the font libraries keep until the end of the process.

// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizer looks for this name.
extern "C" char const* __lsan_default_suppressions() {
    return "leak:libfontconfig\nleak:libfreetype\n";
}
