// What a diagnostics library implements.
//
// The library is "BugSlayerUtil3.0_x64.dll". It is optional: without it nothing is reported and nothing
// else changes. It is found when the process has loaded it already, in the program's folder, in the
// system's folder, or by the full path that is the default value of
// HKEY_CLASSES_ROOT\CLSID\{cf3478aa-dd21-456c-98f2-5222d9b9cd75}\InprocServer32. It is never looked for in
// the current folder or along the search path.
//
// It exports one function, with C linkage and this name:
//
//     extern "C" HRESULT STDMETHODCALLTYPE BS_InitObject(IDebugObject** object);
//
// which gives a counted reference to the object that takes the commands. The caller releases it.
//
// A report is a record: a bag of named values that belongs to the library. The caller makes it by
// "CREATE", writes its fields one by one with Set, in a fixed order, has it judged by "FILTER", handed
// over by "PROCESS", and releases it. The library may keep what it was given for as long as it likes.
//
// Everything here may be called on any thread, on several at once, and in the middle of any failure, an
// unhandled exception included. Nothing may throw. The thread's last error may change. A call back into
// the reporting component is allowed except out of "INIT" and "DEINIT".
#pragma once

#include <windows.h>

#include <ole2.h>

#include <oaidl.h>

MIDL_INTERFACE("f1a70088-96bb-4a34-8a64-319c9f97bddb")
IDebugObject : public IUnknown {
public:
    // Called on the library's object. The command words and what they come with:
    //
    //   "CREATE"        record: where to put a new, empty record, with one reference for the caller. Any
    //                   result but S_OK means that nothing is to be reported; no record is given then.
    //   "FILTER"        record: a complete record. Any result but S_OK means that it is not wanted; it is
    //                   then released without having been processed, and the program goes on.
    //   "PROCESS"       record: a complete record, to be kept or shown. For an assertion and for an
    //                   invalid argument of the C runtime the result is obeyed: 1 stops in the debugger,
    //                   E_ABORT (0x80004004) ends the process after "DEINIT", anything else goes on.
    //   "INIT"          record: the identity of the client, once, before any other record. A failure
    //                   means that the library can't work: it is then told by Failure and let go.
    //   "DEINIT"        no record. The client is about to go.
    //   "TERMINATE"     no record. The client ends the process after it.
    //   "IS CLEAN", "DO CLEAN", "REPORTDIALOG", "TRACEENABLED"
    //                   no record. Asked for by the program; the result is handed back to it.
    //
    // record is null for a command without one. arguments is an array of count values that stay the
    // caller's; no command has any today, so it is null and count is 0. A command word that is not known
    // gives E_NOTIMPL. The words are ended by a null and compared exactly.
    virtual HRESULT STDMETHODCALLTYPE Command(IDebugObject * *record, const wchar_t* command,
                                              const VARIANT* arguments, ULONG count) = 0;

    // Called on a record. Gives a copy of a value that the caller clears; a name that was not set gives
    // DISP_E_MEMBERNOTFOUND and an empty value. On the library's object: E_NOTIMPL.
    virtual HRESULT STDMETHODCALLTYPE Get(const wchar_t* name, VARIANT* value) = 0;

    // Called on a record. Takes a copy; a name that was set before takes the new value and keeps its
    // place. Texts are VT_BSTR. On the library's object: E_NOTIMPL.
    //
    // "$EXCEPTION_POINTERS" (VT_UI8) is the address of an EXCEPTION_POINTERS that stays valid until the
    // field is set to 0, which is before the record is released: copy what is to be kept.
    virtual HRESULT STDMETHODCALLTYPE Set(const wchar_t* name, const VARIANT* value) = 0;

    // Called on the library's object after "INIT" failed. client is the address of the client that could
    // not be served, as text in hexadecimal digits.
    virtual HRESULT STDMETHODCALLTYPE Failure(const wchar_t* client) = 0;
};
__CRT_UUID_DECL(IDebugObject, 0xf1a70088, 0x96bb, 0x4a34, 0x8a, 0x64, 0x31, 0x9c, 0x9f, 0x97, 0xbd, 0xdb)

// Type of the library's export.
using BS_InitObjectFunction = HRESULT(STDMETHODCALLTYPE*)(IDebugObject** object);
