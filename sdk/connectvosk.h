// connectvosk: the host's messaging library, as the plug-in imports it.
//
// A message is a flat list of fields. A field is named by a number, its mnemonic id, and carries
// one or more values, its occurrences, numbered from 0. Every value is a text; it can be read as a
// number where it holds one.
//
// Sending: one message handle and one scratch buffer are opened once. For each message, the first
// 32-bit word of the buffer is set to 0, otp_start_msg begins an empty message in the buffer, and
// each otp_add_data_as_cstring appends a field; the handle then goes to CQuonRxControl::send.
//
// Every operation returns non-zero on success and 0 on failure, writes its results only on success,
// treats a null handle as a failure, and may write the library's error context to `*error` (which
// the caller need not examine; `error` may be null). Ids, counts and occurrences are plain ints. A
// handle is used by one thread at a time.
#pragma once

#include "sdk/calling.h"

#if defined(_WIN32) && defined(CONNECTVOSK_BUILD)
#define CONNECTVOSK_API __declspec(dllexport)
#elif defined(_WIN32) && !defined(CONNECTVOSK_STATIC)
#define CONNECTVOSK_API __declspec(dllimport)
#else
#define CONNECTVOSK_API
#endif

extern "C" {

// A message handle; without a started message it has no fields.
CONNECTVOSK_API int VOSK_CALL otp_ctor_primecb(void** message, void** error);
CONNECTVOSK_API int VOSK_CALL otp_dtor_primecb(void* message, void** error);

// A buffer of `size` bytes (more than 0). The handle points at the buffer itself. Close it after
// the last use of a message that was started in it.
CONNECTVOSK_API int VOSK_CALL otp_open_scratch(void** scratch, int size, void** error);
CONNECTVOSK_API int VOSK_CALL otp_close_scratch(void* scratch, void** error);

CONNECTVOSK_API int VOSK_CALL sys_open_time_hndl(void** timeHandle, void** error);
CONNECTVOSK_API int VOSK_CALL sys_close_time_hndl(void* timeHandle, void** error);

// Starts a new, empty message in the buffer; what the handle held before is gone.
CONNECTVOSK_API int VOSK_CALL otp_start_msg(void* message, void* scratch, void** error);

// Appends `value` as one field; `count` is 1. An id that is in the message already gets its
// next occurrence. A null `value` adds an occurrence that cannot be read. Fails, and leaves the
// message as it was, when the buffer is full.
CONNECTVOSK_API int VOSK_CALL otp_add_data_as_cstring(void* message, int mnemonic, int count,
                                                      const char* value, void** error);

// Succeeds when the field is present; `*count` then holds how many occurrences it has. `*field` is
// the library's own.
CONNECTVOSK_API int VOSK_CALL otp_get_field(void* message, int mnemonic, void** field, int* count,
                                            void** error);

// Reads one occurrence. The text belongs to the message: it lives until the message is started
// again or destroyed.
CONNECTVOSK_API int VOSK_CALL otp_get_data_as_cstring(void* message, int mnemonic, int occurrence,
                                                      const char** text, void** error);

// Read one occurrence as a number. They fail when the text is not a number from its first to its
// last character, or does not fit.
CONNECTVOSK_API int VOSK_CALL otp_get_data_as_int(void* message, int mnemonic, int occurrence,
                                                  int* number, void** error);
CONNECTVOSK_API int VOSK_CALL otp_get_data_as_long(void* message, int mnemonic, int occurrence,
                                                   long long* number, void** error);
CONNECTVOSK_API int VOSK_CALL otp_get_data_as_double(void* message, int mnemonic, int occurrence,
                                                     double* number, void** error);

// For servers, tools and tests (not used by the plug-in): the number of occurrences in the message,
// all fields together, and the mnemonic id at an index, in order of appending. An index outside
// gives -1.
CONNECTVOSK_API int VOSK_CALL otp_field_count(void* message);
CONNECTVOSK_API int VOSK_CALL otp_field_at(void* message, int index);
// How many handles are open: messages, buffers and time handles.
CONNECTVOSK_API int VOSK_CALL otp_open_handles();

// Fault switch for tests: from now on, the `call`-th operation above (1 is the next) fails, as if
// the library were broken just once; 0 switches it off. Returns how many operations have run since
// the switch was last set. The operations for tools are not counted.
CONNECTVOSK_API int VOSK_CALL otp_fail_call(int call);

}  // extern "C"
