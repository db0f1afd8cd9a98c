#pragma once

/// What a host, a test or a tool can do with the stand-in library besides being served by it:
/// fill and read the registry, own events, free the XFS memory, hear the trace lines, and watch
/// or fail each call that the module makes.
///
/// Plain C99. Every function may be called from any thread at any time, also in the child of a
/// fork, and none is counted or logged as a call of the module. Without any of them everything just
/// works: every call of the module succeeds as on a terminal whose registry holds only the
/// ErrorCode key.
///
/// Text is UTF-8, terminated by 0. Key paths begin with their root, and are compared as the
/// registry compares them: "HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\ErrorCode". An int that answers
/// a question is 1 for yes and 0 for no; an int32_t result is 0 or the error number of Windows.

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---------------------------------------------------------------- everything at once */

/// Makes the stand-in as it was when it was loaded: start content of the registry, no key open,
/// no event, no listener, nothing counted, logged or failing. Memory blocks stay allocated.
void QxmixReset(void);

/* ---------------------------------------------------------------- registry content */

/// Error numbers of Windows that the registry and its files give.
enum {
    kQxmixErrorFileNotFound = 2,       ///< no such key, value or file
    kQxmixErrorAccessDenied = 5,       ///< the key was opened without the right for this
    kQxmixErrorInvalidHandle = 6,      ///< never opened, or closed already
    kQxmixErrorInvalidData = 13,       ///< a registry file with a wrong line
    kQxmixErrorOutOfMemory = 14,       ///< no memory
    kQxmixErrorWriteFault = 29,        ///< a file that cannot be written
    kQxmixErrorReadFault = 30,         ///< a file that cannot be read
    kQxmixErrorInvalidParameter = 87,  ///< wrong argument; here also: no such root, not UTF-8
    kQxmixErrorBadPathName = 161,      ///< a sub-key path that begins with a backslash
    kQxmixErrorMoreData = 234,         ///< the caller's buffer is too small
    kQxmixErrorKeyDeleted = 1018       ///< an open key that was deleted or replaced meanwhile
};

/// Types of values.
enum {
    kQxmixRegNone = 0,
    kQxmixRegSz = 1,
    kQxmixRegExpandSz = 2,
    kQxmixRegBinary = 3,
    kQxmixRegDword = 4,
    kQxmixRegMultiSz = 7
};

/// Where and why a registry file was refused.
typedef struct QxmixTextError {
    uint32_t line;      ///< from 1; 0 when it is about the file as a whole
    char message[200];  ///< one clause, no line end: "value without a key line above it"
} QxmixTextError;

/// Puts back the start content: nothing but the key HKEY_LOCAL_MACHINE "SOFTWARE\ATM\ErrorCode".
void QxmixRegistryReset(void);

/// Removes every key and value, the ErrorCode key included.
void QxmixRegistryClear(void);

/// Replaces the whole content by that of a registry file in memory.
///
/// @param text   REGEDIT4 or Windows Registry Editor Version 5.00; UTF-8, or UTF-16LE with mark.
/// @param size   bytes in text.
/// @param error  filled when the text is refused, otherwise cleared; may be null.
/// @return 0, or kQxmixErrorInvalidData with the content left as it was.
int32_t QxmixRegistryLoadText(const void* text, size_t size, QxmixTextError* error);

/// Replaces the whole content by that of a registry file; as QxmixRegistryLoadText, and
/// kQxmixErrorFileNotFound or kQxmixErrorReadFault, told with line 0.
int32_t QxmixRegistryLoadFile(const char* path, QxmixTextError* error);

/// Writes the content as version 5.00, UTF-16LE with mark, lines ended by CR LF, keys and values
/// in order of their names.
///
/// @param buffer    may be null when capacity is 0.
/// @param capacity  bytes in buffer; nothing is written when the text does not fit.
/// @param size      receives the bytes of the whole text, fitting or not.
/// @return 0, kQxmixErrorMoreData, or kQxmixErrorInvalidData for a name with a line break.
int32_t QxmixRegistrySaveText(void* buffer, size_t capacity, size_t* size);

/// Writes the same text to a file: beside it first, then renamed, so that a failure leaves the
/// old file whole. error tells with line 0 what went wrong; may be null.
int32_t QxmixRegistrySaveFile(const char* path, QxmixTextError* error);

/// Stores a value and creates its key when missing. An empty or null name is the key's own value.
int32_t QxmixRegistrySetValue(const char* key,
                              const char* name,
                              uint32_t type,
                              const void* bytes,
                              uint32_t size);

/// Stores UTF-8 text as a terminated REG_SZ in UTF-16.
int32_t QxmixRegistrySetText(const char* key, const char* name, const char* text);

/// Stores a REG_DWORD.
int32_t QxmixRegistrySetNumber(const char* key, const char* name, uint32_t number);

/// Reads a value.
///
/// @param type    receives the type; may be null.
/// @param bytes   receives the bytes; may be null, which asks only for type and size.
/// @param size    in: bytes of room; out: bytes of the value; may be null when bytes is.
/// @return 0, kQxmixErrorFileNotFound, or kQxmixErrorMoreData with nothing written to bytes.
int32_t QxmixRegistryGetValue(const char* key,
                              const char* name,
                              uint32_t* type,
                              void* bytes,
                              uint32_t* size);

/// Removes a value.
int32_t QxmixRegistryDeleteValue(const char* key, const char* name);

/// Whether the key is there. A path that names no root is no key.
int QxmixRegistryKeyExists(const char* key);

/// Creates a key and those above it; one that is there stays as it is.
int32_t QxmixRegistryCreateKey(const char* key);

/// Removes a key with everything below it. A root keeps existing, empty.
int32_t QxmixRegistryDeleteKey(const char* key);

/// Number of keys that the module has opened and not closed.
uint32_t QxmixRegistryOpenKeys(void);

/* ---------------------------------------------------------------- events */

/// Creates an event that is not set and stays set until it is reset.
/// @return a handle to give to the module, or null when memory is out.
void* QxmixEventCreate(void);

/// Whether the event is set: 1, 0, or -1 for a handle that is no event.
int QxmixEventIsSet(const void* event);

/// Number of times the event was set or pulsed since it was created; 0 for no event.
uint32_t QxmixEventSignals(const void* event);

/// Resets the event. @return 1, or 0 for a handle that is no event.
int QxmixEventReset(void* event);

/// Destroys the event. @return 1, or 0 for a handle that is no event.
int QxmixEventDestroy(void* event);

/* ---------------------------------------------------------------- XFS memory */

/// Result codes of the memory functions. Source: CEN/XFS xfsapi.h, published constants.
enum {
    kQxmixXfsSuccess = 0,
    kQxmixXfsInvalidBuffer = -18,   ///< no block of WFMAllocateBuffer, or freed already
    kQxmixXfsInvalidPointer = -26,  ///< a null pointer
    kQxmixXfsOutOfMemory = -42      ///< no memory
};

/// Memory that was not asked for as cleared is filled with this byte, to show what stays unwritten.
enum { kQxmixUnwrittenByte = 0xA5 };

/// Frees a block of WFMAllocateBuffer and all blocks that WFMAllocateMore linked to it.
/// A linked block is no block of its own. The XFS manager's function of this name.
int32_t WFMFreeBuffer(void* block);

/// Number of blocks not freed yet, linked ones included.
uint32_t QxmixMemoryLiveBlocks(void);

/// Number of blocks that WFMFreeBuffer would still take.
uint32_t QxmixMemoryLiveBuffers(void);

/// Gives the size that a live block, linked or not, was asked with. @return 1, or 0: no block.
int QxmixMemoryBlockSize(const void* block, uint32_t* size);

/// Frees every block.
void QxmixMemoryFreeAll(void);

/* ---------------------------------------------------------------- trace lines */

/// Takes one line without line end. Lines come one at a time, from the thread that traces.
typedef void (*QxmixTraceListener)(void* context, const char* line);

/// Sets who hears the trace lines; null for nobody, as at the start. When this returns, the
/// former listener is not called any more.
void QxmixSetTraceListener(QxmixTraceListener listener, void* context);

/* ---------------------------------------------------------------- calls of the module */

/// The functions that the module calls.
typedef enum QxmixFunction {
    kQxmixRegOpenKeyExW,
    kQxmixRegCreateKeyExW,
    kQxmixRegQueryValueExW,
    kQxmixRegSetValueExW,
    kQxmixRegCloseKey,
    kQxmixEventModify,
    kQxmixWFMAllocateBuffer,
    kQxmixWFMAllocateMore,
    kQxmixAnyFunction  ///< the eight together, counted in the order of the calls
} QxmixFunction;

/// As a code to fail with: what the function gives for want of memory; EventModify gives FALSE.
enum { kQxmixUsualFailure = -2147483647 - 1 };

/// One call, in the order in which calls ended.
typedef struct QxmixCall {
    QxmixFunction function;
    /// Root, backslash, and the sub-key exactly as written when the key was opened; what does not
    /// fit is cut. "?" for a handle that is no open key; empty for events and memory.
    char key[512];
    char valueName[512];  ///< query and set
    uint32_t access;      ///< open and create
    uint32_t type;        ///< set: the type given; query: the type found, 0 if none
    uint32_t size;     ///< set, memory: bytes given or asked for; query: bytes of room, 0 if none
    uint32_t options;  ///< open, create: options; events: operation; WFMAllocateBuffer: flags
    int32_t result;    ///< what the module got
    int forced;        ///< 1: failed by request, and did nothing
} QxmixCall;

/// Name of a function: "RegOpenKeyExW". An empty text for anything that is none.
const char* QxmixFunctionName(QxmixFunction function);

/// Number of calls made since the start or the last QxmixResetCalls, failed ones included.
uint32_t QxmixCallCount(QxmixFunction function);

/// Sets the counts to 0, empties the log and takes back every failure asked for. Whether calls
/// are logged stays.
void QxmixResetCalls(void);

/// Lets one call fail: the n-th from now, 1 being the next. It does nothing and gives the code.
/// Asking again for the same function replaces what was asked before; 0 for n takes it back.
void QxmixFailCall(QxmixFunction function, uint32_t n, int32_t code);

/// As QxmixFailCall, for the n-th call from now and all after it.
void QxmixFailCallsFrom(QxmixFunction function, uint32_t n, int32_t code);

/// Switches the log of calls on (1) or off (0, as at the start). The first 100000 are kept.
void QxmixLogCalls(int on);

/// Number of calls in the log.
uint32_t QxmixLoggedCalls(void);

/// Copies a logged call; index from 0. @return 1, or 0 when there is none.
int QxmixGetLoggedCall(uint32_t index, QxmixCall* call);

/// Writes a logged call as one line of text, cut to capacity, for example
///   RegOpenKeyExW("HKEY_LOCAL_MACHINE\SOFTWARE\ATM\ErrorCode", access 0xF003F) = 0
///   RegCreateKeyExW("HKEY_LOCAL_MACHINE\SOFTWARE\ATM\DevInfo\CDM\", access 0xF003F) = 0
///   RegQueryValueExW("HKEY_CLASSES_ROOT\A", "TraceLevel", type 4, size 4) = 0
///   RegSetValueExW("HKEY_LOCAL_MACHINE\SOFTWARE\ATM\ErrorCode", "CDM", type 1, size 5) = 0
///   RegCloseKey("HKEY_LOCAL_MACHINE\SOFTWARE\ATM\ErrorCode") = 0
///   EventModify(operation 3) = 1
///   WFMAllocateBuffer(size 88, flags 3) = 0
///   WFMAllocateMore(size 16) = -42 forced
/// @return 1, or 0 when there is no such call or no room at all.
int QxmixGetLoggedCallText(uint32_t index, char* text, size_t capacity);

#ifdef __cplusplus
}
#endif
