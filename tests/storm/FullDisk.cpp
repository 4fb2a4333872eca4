#include "storm/FullDisk.h"

#include <map>
#include <sqlite3.h>

namespace {
sqlite3_vfs* s_unix = nullptr;
sqlite3_vfs s_vfs;
std::map<const sqlite3_io_methods*, sqlite3_io_methods> s_methods; ///< ours, by the file's own
decltype(sqlite3_io_methods::xWrite) s_write = nullptr;
bool s_full = false;

int writeUnlessFull(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 offset)
{
    return s_full ? SQLITE_FULL : s_write(file, bytes, count, offset);
}

int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags)
{
    const int result = s_unix->xOpen(s_unix, name, file, flags, outFlags);
    if (file->pMethods) {
        sqlite3_io_methods& methods = s_methods[file->pMethods];
        methods = *file->pMethods;
        s_write = methods.xWrite;
        methods.xWrite = &writeUnlessFull;
        methods.xSync = [](sqlite3_file*, int) { return SQLITE_OK; };
        file->pMethods = &methods;
    }
    return result;
}
}

void FullDisk::install()
{
    if (s_unix)
        return;
    s_unix = sqlite3_vfs_find("unix");
    s_vfs = *s_unix;
    s_vfs.zName = "full-disk";
    s_vfs.xOpen = &open;
    sqlite3_vfs_register(&s_vfs, 1);
}

void FullDisk::setFull(bool full)
{
    s_full = full;
}
