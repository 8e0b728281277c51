// How functions at the border are called: with C linkage, by undecorated names, as plain C calls
// them. 64-bit Windows knows one way only; on 32-bit Windows it is __cdecl, also for a host whose
// compiler is set to another default. The operations of receive_control.h are called as every
// compiler for Windows calls member functions there (thiscall).
#pragma once

#if defined(_WIN32)
#define VOSK_CALL __cdecl
#else
#define VOSK_CALL
#endif
