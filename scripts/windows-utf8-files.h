/* Included before each source of a C library for Windows: names of files are UTF-8, as they are
   everywhere else, and not in the system's code page. Writing them with the system's code page
   would lose what that has no letters for. */
#ifndef KELVANE_WINDOWS_UTF8_FILES_H
#define KELVANE_WINDOWS_UTF8_FILES_H

#include <fcntl.h>
#include <io.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <wchar.h>

/* As <windows.h> has it, which defines names that the libraries use for their own. */
__declspec(dllimport) int __stdcall MultiByteToWideChar(unsigned int page, unsigned long flags,
                                                        const char* text, int length, wchar_t* wide,
                                                        int room);

enum { kMaxWidePath = 32768 };

/* To be freed; null when `text` is no UTF-8. */
static inline wchar_t* WideTextOf(const char* text) {
    const unsigned int utf8 = 65001;
    wchar_t* wide = (wchar_t*)malloc(kMaxWidePath * sizeof(wchar_t));
    if (wide != NULL && MultiByteToWideChar(utf8, 8, text, -1, wide, kMaxWidePath) == 0) {
        free(wide);
        wide = NULL;
    }
    return wide;
}

static inline FILE* OpenUtf8Stream(const char* name, const char* mode) {
    wchar_t* wideName = WideTextOf(name);
    wchar_t* wideMode = WideTextOf(mode);
    FILE* stream = NULL;
    if (wideName != NULL && wideMode != NULL) stream = _wfopen(wideName, wideMode);
    free(wideName);
    free(wideMode);
    return stream;
}

static inline int OpenUtf8File(const char* name, int flags, int rights) {
    wchar_t* wideName = WideTextOf(name);
    const int file = wideName == NULL ? -1 : _wopen(wideName, flags, rights);
    free(wideName);
    return file;
}

static inline int StateOfUtf8File(const char* name, struct stat* state) {
    wchar_t* wideName = WideTextOf(name);
    const int result = wideName == NULL ? -1 : wstat(wideName, state);
    free(wideName);
    return result;
}

#undef fopen
#undef fopen64
#undef _open
#undef open
#undef stat
#define fopen(name, mode) OpenUtf8Stream(name, mode)
#define fopen64(name, mode) OpenUtf8Stream(name, mode)
#define _open(name, flags, rights) OpenUtf8File(name, flags, rights)
#define open(name, flags, rights) OpenUtf8File(name, flags, rights)
#define stat(name, state) StateOfUtf8File(name, state)

#endif
