#pragma once

namespace OrvPdf
{

/// Whether the current thread's stack has room for what reads one more content inside of others.
bool HasStackRoom();

/// Throws `std::runtime_error` if the current thread's stack is nearly used up. The PDF library resolves
/// references within references recursively (lengths of streams, object streams), to a depth that the file
/// decides; it reads bytes at each level, and each read asks here first.
void RequireStackRoom();

} // namespace OrvPdf
