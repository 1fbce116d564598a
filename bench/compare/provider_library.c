/* SPDX-License-Identifier: MIT
 * Asks the desktop's library for the same XML: provider_library XML COUNTRIES MCCMNC */
#include <nma-mobile-providers.h>
#include <stdio.h>

int main(int argc, char** argv) {
    GError* error = NULL;
    NMAMobileProvidersDatabase* database;
    NMAMobileProvider* provider;
    GSList* method;
    if (argc != 4) {
        return 2;
    }
    database = nma_mobile_providers_database_new_sync(argv[2], argv[1], NULL, &error);
    if (database == NULL) {
        fprintf(stderr, "%s\n", error->message);
        return 1;
    }
    provider = nma_mobile_providers_database_lookup_3gpp_mcc_mnc(database, argv[3]);
    method = provider == NULL ? NULL : nma_mobile_provider_get_methods(provider);
    for (; method != NULL; method = method->next) {
        const char* apn = nma_mobile_access_method_get_3gpp_apn(method->data);
        if (apn != NULL) {
            printf("%s\n", apn);
            return 0;
        }
    }
    return 1;
}
