// SPDX-License-Identifier: Apache-2.0
// The program that the precompiled headers of all tests are made for.
int main() {
    return 0;
}
