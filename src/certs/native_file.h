#pragma once

#include <cstdio>
#include <string>

// The file system calls behind the files the program writes and reads: one
// implementation per platform (native_file.cpp for POSIX, native_file_win.cpp
// for Windows). Paths are UTF-8 everywhere.
namespace Zorvane {

// The error number (errno's values) of the last failed system call on this
// thread. On Windows that is the system's own last error, told as the errno
// that names the same condition (the C runtime's calls set errno itself).
int last_system_error();

// Converts UTF-8 to the platform's UTF-16 paths (Windows only uses it).
std::wstring widened_path(const std::string& path);

// Queues the failure as OpenSSL queues a failed fopen and raises it, so that
// every failure to open or write a file is worded alike.
[[noreturn]] void raise_system_error(int error, const char* call, const std::string& path);

// Opens the file that receives a secret, truncated, as a binary output
// stream. It is never accessible to another user, not even for an instant: a new
// file is born for its owner alone, an existing one is restricted before
// anything is emptied or written. Only a regular file takes a secret; a pipe,
// a device, a socket or a link that another user planted is refused as a
// failed open. A failure raises.
std::FILE* open_secret_stream(const std::string& path);

// Pushes what the stream has written on to the disk; a regular file whose
// flush to the disk fails raises.
void sync_to_disk(std::FILE* stream);

} // namespace Zorvane
