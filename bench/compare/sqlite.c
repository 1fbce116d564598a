/* SPDX-License-Identifier: MIT
 * Asks a database, which is filled and indexed at every start, or prepared once and then opened.
 *   sqlite load SOURCE MCCMNC
 *   sqlite make SOURCE DATABASE
 *   sqlite open DATABASE MCCMNC */
#define _POSIX_C_SOURCE 200809L
#include <sqlite3.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum { MOST_FIELDS = 32 };

static void check(sqlite3* database, int result) {
    if (result != SQLITE_OK && result != SQLITE_DONE) {
        fprintf(stderr, "%s\n", sqlite3_errmsg(database));
        exit(1);
    }
}

static void run(sqlite3* database, const char* statement) {
    check(database, sqlite3_exec(database, statement, NULL, NULL, NULL));
}

/* Splits a line in place into its fields. Each has a separator before and after it. */
static int split(char* line, char** fields) {
    int count = 0;
    char *from = strchr(line, '#'), *to;
    while (from != NULL && count < MOST_FIELDS) {
        fields[count] = to = ++from;
        while (*from != '\0' && *from != '#') {
            from += *from == '\\' ? 1 : 0;
            *to++ = *from++;
        }
        if (*from == '\0') {
            break;
        }
        *to = '\0';
        ++count;
    }
    return count;
}

/* Makes the table of a marker line. Returns the statement that inserts its rows. */
static sqlite3_stmt* begin_table(sqlite3* database, char** fields, int count) {
    char table[2048], insert[512];
    sqlite3_stmt* statement;
    int i, t, n;
    t = snprintf(table, sizeof table, "create table %s (", fields[1]);
    n = snprintf(insert, sizeof insert, "insert into %s values (", fields[1]);
    for (i = 2; i < count; ++i) {
        t += snprintf(table + t, sizeof table - (size_t)t, "%s\"%s\" text", i > 2 ? "," : "",
                      fields[i]);
        n += snprintf(insert + n, sizeof insert - (size_t)n, i > 2 ? ",?" : "?");
    }
    snprintf(table + t, sizeof table - (size_t)t, ")");
    snprintf(insert + n, sizeof insert - (size_t)n, ")");
    run(database, table);
    check(database, sqlite3_prepare_v2(database, insert, -1, &statement, NULL));
    return statement;
}

static void load(sqlite3* database, const char* source) {
    FILE* file = fopen(source, "r");
    sqlite3_stmt* insert = NULL;
    char *line = NULL, *fields[MOST_FIELDS];
    size_t room = 0;
    if (file == NULL) {
        perror(source);
        exit(1);
    }
    run(database, "begin");
    while (getline(&line, &room, file) > 0) {
        const int count = split(line, fields);
        if (count > 0 && strcmp(fields[0], "$_TABLE_BEGIN_$") == 0) {
            insert = begin_table(database, fields, count);
        } else if (count > 0 && strcmp(fields[0], "$_TABLE_END_$") == 0) {
            sqlite3_finalize(insert);
            insert = NULL;
        } else if (count > 0 && insert != NULL) {
            int i;
            for (i = 0; i < count; ++i) {
                check(database, sqlite3_bind_text(insert, i + 1, fields[i], -1, SQLITE_STATIC));
            }
            check(database, sqlite3_step(insert));
            sqlite3_reset(insert);
        }
    }
    run(database, "commit");
    run(database,
        "create index by_answers on NetworkIdentification (\"Response(AT+COPS)\");"
        "create index by_networks on BasicDUNSettings (NetworkID);"
        "create index by_countries on BasicDUNSettings (CountryID)");
    free(line);
    fclose(file);
}

static int ask(sqlite3* database, const char* network) {
    sqlite3_stmt* question;
    int found;
    check(database,
          sqlite3_prepare_v2(database,
                             "select APN from NetworkIdentification n join BasicDUNSettings s on "
                             "s.NetworkID = n.NetworkID where n.\"Response(AT+COPS)\" = ? "
                             "order by s.rowid limit 1",
                             -1, &question, NULL));
    check(database, sqlite3_bind_text(question, 1, network, -1, SQLITE_STATIC));
    found = sqlite3_step(question) == SQLITE_ROW;
    if (found) {
        printf("%s\n", (const char*)sqlite3_column_text(question, 0));
    }
    sqlite3_finalize(question);
    return found ? 0 : 1;
}

int main(int argc, char** argv) {
    sqlite3* database;
    int result = 0;
    if (argc != 4) {
        return 2;
    }
    const int opens = strcmp(argv[1], "open") == 0, makes = strcmp(argv[1], "make") == 0;
    check(NULL,
          sqlite3_open_v2(opens   ? argv[2]
                          : makes ? argv[3]
                                  : ":memory:",
                          &database,
                          opens ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE,
                          NULL));
    if (!opens) {
        load(database, argv[2]);
    }
    if (!makes) {
        result = ask(database, argv[3]);
    }
    sqlite3_close(database);
    return result;
}
