/* SPDX-License-Identifier: MIT
 * What a host may do to the built library, which it loads with dlopen:
 *     trials LIBRARY CATALOGUE TRACED sweep|cancel|cycles|atexit
 * TRACED is the same catalogue with calls traced. */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <pthread.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>
#include <unistd.h>

#include "velmor.h"

/* The exported C++ functions, and a text as the library lays it out. */
struct text {
    int grow_by, count, capacity;
    char* bytes;
};
void _Z5Tracel(long);
void _Z5TracePKc(const char*);
void _Z5TraceRN3vel6StringE(struct text*);
int _Z9ATCommandRKN3vel6StringERS0_i(const struct text*, struct text*, int);
int _Z10ATCompressRN3vel6StringERKS0_(struct text*, const struct text*);

static const char *path, *catalogue, *traced;
static const char* called = "";
static void* library;

static void require(int is_so, const char* what) {
    if (!is_so) {
        fprintf(stderr, "not so: %s\n", what);
        _exit(1);
    }
}

static void (*find(void* where, const char* name))(void) {
    void* const symbol = dlsym(where, name);
    void (*function)(void);
    require(symbol != NULL, name);
    called = name;
    memcpy(&function, &symbol, sizeof function);
    return function;
}
#define CALL(name) ((__typeof__(name)*)find(library, #name))

/* Allocations are counted, and made to fail. */
static long live, asked, failing;
static int for_good;
#ifndef SANITIZED
void *__libc_malloc(size_t), *__libc_realloc(void*, size_t), *__libc_calloc(size_t, size_t);
void __libc_free(void*);
static int fails(void) {
    const long now = __sync_add_and_fetch(&asked, 1);
    return failing != 0 && (for_good ? now >= failing : now == failing);
}
static void* counted(void* block) {
    __sync_add_and_fetch(&live, block != NULL);
    return block;
}
void* malloc(size_t size) {
    return fails() ? NULL : counted(__libc_malloc(size));
}
void* calloc(size_t count, size_t size) {
    return fails() ? NULL : counted(__libc_calloc(count, size));
}
void* realloc(void* block, size_t size) {
    return block == NULL ? malloc(size) : fails() ? NULL : __libc_realloc(block, size);
}
void free(void* block) {
    __sync_sub_and_fetch(&live, block != NULL);
    __libc_free(block);
}
#endif

/* What the library writes, the trace log and the copies of catalogues, goes nowhere. */
FILE* fopen(const char* name, const char* mode) {
    return ((__typeof__(fopen)*)find(RTLD_NEXT, "fopen"))(*mode == 'r' ? name : "/dev/null", mode);
}

/* A phone that needs no memory. Its answer about maker and model is the same. */
static const char* answer = "";
static long send_command(const char* command, long length) {
    const int is_model = strncmp(command, "AT+CGM", 6) == 0;
    pthread_testcancel();
    answer = is_model ? "\r\nACME X100\r\n\r\nOK\r\n" : "\r\n999011234\r\n\r\nOK\r\n";
    return length;
}
static long read_byte(char* buffer, long count, long timeout) {
    pthread_testcancel();
    *buffer = *answer;
    return timeout == 100 && *answer != '\0' ? (++answer, count) : 0;
}

/* What calls may answer: as in a session, as without one or when memory runs out, or either. */
enum { OPEN = 1, CLOSED = 2, EITHER = 3 };

static void expect(int answers, long open, long closed, long got) {
    int state = 0;
    pthread_setcancelstate(PTHREAD_CANCEL_ENABLE, &state);
    require(state == PTHREAD_CANCEL_ENABLE, "the host's state is restored");
    if (!((answers & OPEN) != 0 && got == open) && !((answers & CLOSED) != 0 && got == closed)) {
        fprintf(stderr, "%s: %ld, when allocation %ld fails\n", called, got, failing);
        _exit(1);
    }
}

#define TEXT(literal) \
    { 32, sizeof(literal), sizeof(literal), literal }
static struct text response = {32, 0, 0, NULL}, command = TEXT("AT+CIMI\r");
static const struct text recipe = TEXT("PhoneIdentificationVariables");

static void session(const char* from, int answers) {
    char name[32], other[32];
    const long size = sizeof name;
    long number = -1;
    Velmor_DUNSetting setting;
    expect(answers, 0, -1, CALL(Velmor_Initialise)(from, read_byte, send_command));
    expect(answers, 0, -1, CALL(Velmor_DetectPhoneAndNetwork)(0, name, size, other, size));
    expect(answers, 10, -1, CALL(Velmor_GetDetectedPhone)(0, name, size, other, size));
    expect(answers, 0, 0, CALL(Velmor_GetNrDetectedDUNSettings)(0, &number));
    expect(answers, 2, 0, number);
    expect(answers, 0, -1, CALL(Velmor_GetDetectedDUNSettingByIndex)(0, 0, &setting));
    expect(answers, 0, -1, CALL(Velmor_GetDUNSetting)(0, 10, 1, &setting));
    expect(answers, 1, -1, setting.aBasicDUNSettingId);
    expect(answers, 'i', '\0', setting.APN[0]);
    expect(answers, VELMOR_VERSION, VELMOR_VERSION, CALL(Velmor_GetVersionLibrary)());
    expect(answers, 7, -1, CALL(Velmor_GetVersionDatabase)(0));
    expect(answers, 3, 0, CALL(Velmor_GetNrCountries)(0));
    expect(answers, 0, -1, CALL(Velmor_GetCountryByIndex)(0, 1, name, size));
    expect(answers, 3, 0, CALL(Velmor_GetNrOfPhones)(0));
    expect(answers, 0, -1, CALL(Velmor_GetPhoneByIndex)(0, 1, &number, name, size));
    expect(answers, 3, -1, CALL(Velmor_GetCountryNrOfBasicDUNSettings)(0, 0));
    expect(answers, 0, -1, CALL(Velmor_GetCountryBasicDUNSettingByIndex)(0, 0, 0, &setting));
    CALL(OnNetworkListnetworks)();
    CALL(_Z5Tracel)(-7);
    CALL(_Z5TracePKc)("");
    CALL(_Z5TraceRN3vel6StringE)(&command);
    expect(answers, 0, 1, CALL(_Z9ATCommandRKN3vel6StringERS0_i)(&command, &response, 0));
    expect(answers, 0, answers == EITHER ? -1 : 0,
           CALL(_Z10ATCompressRN3vel6StringERKS0_)(&response, &recipe));
    failing = 0;
}

/* Memory runs out, once or for good, at the points of a session. */
static void* run_out(void* from) {
    const long step = from == catalogue ? 1 : 61;
    session(from, OPEN); /* a thread is safe once it has opened a session */
    for (for_good = 1; for_good >= 0; --for_good) {
        long at = 1 - step;
        do {
            at += step;
            CALL(Velmor_DeInitialise)();
            asked = 0;
            failing = at;
            session(from, EITHER);
        } while (asked >= at);
        printf("allocations %s: %ld failure points\n", for_good ? "for good" : "once", at / step);
    }
    return NULL;
}

static pthread_t start(void* (*work)(void*), const char* from) {
    pthread_t thread;
    require(pthread_create(&thread, NULL, work, (void*)from) == 0, "a thread");
    return thread;
}

static void sweep(void) {
    run_out((void*)catalogue);
    require(pthread_join(start(run_out, traced), NULL) == 0, "its end");
}

static void* call_for_ever(void* from) {
    for (;;) {
        session(from, OPEN);
        pthread_testcancel();
    }
    return NULL;
}

static int threads;
static void cancel(void) {
    const char* const given = getenv("SEED");
    unsigned seed = (unsigned)(given != NULL ? strtol(given, NULL, 10) : time(NULL));
    int i;
    printf("%d threads, SEED=%u\n", threads, seed);
    for (i = 0; i < threads; ++i) {
        const struct timespec moment = {0, rand_r(&seed) % 2000000};
        const pthread_t thread = start(call_for_ever, i % 4 == 0 ? catalogue : traced);
        void* result;
        nanosleep(&moment, NULL);
        require(pthread_cancel(thread) == 0, "a running thread");
        require(pthread_join(thread, &result) == 0 && result == PTHREAD_CANCELED, "its end");
    }
}

/* From load to unload, with the session ended before or left open. */
static void cycle(void (*trial)(void), int is_ended) {
    library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    require(library != NULL, path);
    failing = for_good = 1; /* for the first exceptions of the process */
    session("", EITHER);
    session(catalogue, OPEN);
    if (trial != NULL) {
        trial();
    }
    if (is_ended) {
        CALL(Velmor_DeInitialise)();
    }
    require(dlclose(library) == 0, "unloaded");
    free(response.bytes);
    response = (struct text){32, 0, 0, NULL};
}

static void call_late(void) {
    session(traced, CLOSED);
    _exit(0);
}
static void exit_in_session(void) {
    session(traced, OPEN);
    exit(1);
}

int main(int argc, char** argv) {
    const char* const name = argc == 5 ? argv[4] : "";
    const int is_sweep = strcmp(name, "sweep") == 0, is_cancel = strcmp(name, "cancel") == 0;
    void (*const trial)(void) = is_sweep ? sweep : is_cancel ? cancel : NULL;
    const int cycles = strcmp(name, "cycles") == 0 ? 1000 : 2;
    long blocks = 0;
    int i;
    require(argc == 5, "four arguments");
    setvbuf(stdout, NULL, _IONBF, 0);
    path = argv[1];
    catalogue = argv[2];
    traced = argv[3];
    if (strcmp(name, "atexit") == 0) {
        require(atexit(call_late) == 0, "a handler");
        cycle(exit_in_session, 0);
    }
    for (i = -4; i < cycles; ++i) {
        threads = i < 0 ? 4 : 300;
        blocks = i == 0 ? live : blocks; /* by now, what the C library keeps is allocated */
        cycle(i < 0 ? cancel : i == 0 ? trial : NULL, i % 2);
    }
    printf("%s: %ld blocks more\n", name, live - blocks);
    return live == blocks ? 0 : 1;
}
