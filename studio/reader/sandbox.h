#pragma once

/// Limits memory to 2 GB and CPU time to 8 s, which the parent can raise, and ends this process
/// with its parent. Lower limits stay.
void LimitResources();

/// From now on this process can open system files, such as libraries, fonts and profiles, for
/// reading, and use the descriptors that it has; it can open nothing else, create nothing, start no
/// program and open no socket. A kernel without Landlock lets it open any file for reading. To be
/// called before there are other threads. Returns false when the kernel has a means of restriction
/// but refuses it; nothing may be decoded then.
[[nodiscard]] bool EnterSandbox();
