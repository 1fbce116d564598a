/* SPDX-License-Identifier: MIT
 * The cost of a process that does nothing. */
int main(void) {
    return 0;
}
