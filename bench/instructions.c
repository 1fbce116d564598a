/* SPDX-License-Identifier: MIT
 * A plugin for the emulator (qemu-user 7.2): counts the instructions that a program executes and
 * prints them by function, "COUNT FUNCTION" in each line. See scripts/instructions. */
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

/* The part of the interface that is used; Debian has no package with its header. */
typedef uint64_t qemu_plugin_id_t;
struct qemu_plugin_tb;
struct qemu_plugin_insn;
enum qemu_plugin_op { QEMU_PLUGIN_INLINE_ADD_U64 };
size_t qemu_plugin_tb_n_insns(const struct qemu_plugin_tb* tb);
struct qemu_plugin_insn* qemu_plugin_tb_get_insn(const struct qemu_plugin_tb* tb, size_t index);
const char* qemu_plugin_insn_symbol(const struct qemu_plugin_insn* instruction);
void qemu_plugin_register_vcpu_tb_exec_inline(struct qemu_plugin_tb* tb, enum qemu_plugin_op op,
                                              void* counter, uint64_t value);
void qemu_plugin_register_vcpu_tb_trans_cb(qemu_plugin_id_t id,
                                           void (*callback)(qemu_plugin_id_t,
                                                            struct qemu_plugin_tb*));
void qemu_plugin_register_atexit_cb(qemu_plugin_id_t id, void (*callback)(qemu_plugin_id_t, void*),
                                    void* data);
void qemu_plugin_outs(const char* text);

#define EXPORT __attribute__((visibility("default")))
EXPORT int qemu_plugin_version = 1;

/* A function of the program. They stay: the emulator adds to the counters. */
struct function {
    struct function* next;
    uint64_t count;
    char name[];
};
static struct function* functions;

static struct function* find(const char* name) {
    struct function* f = functions;
    while (f != NULL && strcmp(f->name, name) != 0) {
        f = f->next;
    }
    if (f == NULL) {
        f = calloc(1, sizeof *f + strlen(name) + 1);
        if (f == NULL) {
            abort();
        }
        memcpy(f->name, name, strlen(name) + 1);
        f->next = functions;
        functions = f;
    }
    return f;
}

/* A block of instructions is translated once, and lies in one function. */
static void translated(qemu_plugin_id_t id, struct qemu_plugin_tb* tb) {
    const char* name = qemu_plugin_insn_symbol(qemu_plugin_tb_get_insn(tb, 0));
    (void)id;
    qemu_plugin_register_vcpu_tb_exec_inline(tb, QEMU_PLUGIN_INLINE_ADD_U64,
                                             &find(name == NULL ? "?" : name)->count,
                                             qemu_plugin_tb_n_insns(tb));
}

static void ended(qemu_plugin_id_t id, void* data) {
    char line[512];
    const struct function* f;
    (void)id;
    (void)data;
    for (f = functions; f != NULL; f = f->next) {
        snprintf(line, sizeof line, "%llu %s\n", (unsigned long long)f->count, f->name);
        qemu_plugin_outs(line);
    }
}

struct qemu_info;
EXPORT int qemu_plugin_install(qemu_plugin_id_t id, const struct qemu_info* info, int argc,
                               char** argv);
int qemu_plugin_install(qemu_plugin_id_t id, const struct qemu_info* info, int argc, char** argv) {
    (void)info;
    (void)argc;
    (void)argv;
    qemu_plugin_register_vcpu_tb_trans_cb(id, translated);
    qemu_plugin_register_atexit_cb(id, ended, NULL);
    return 0;
}
