#pragma once

namespace orvex {

/// Reads the system's list of fonts, for this process without fonts that are packed for the web
/// (WOFF): where a font lies beside its packed form, the toolkit takes either, and unpacking one of
/// the size of the symbols takes 8 ms of each start. Any thread, before the first text is laid out.
/// Where fontconfig cannot be loaded, nothing changes.
void applyFontRules();

}  // namespace orvex
