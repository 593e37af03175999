#pragma once

namespace hostile {

// What is written when the program dies, null for nothing. The text stays the caller's.
void say_at_crash(const char* text);

}  // namespace hostile
