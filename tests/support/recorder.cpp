// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Stands in for an external editor: writes down in which folder and with which
// arguments it was started, each with a null byte behind it, into a file of its own in
// the folder that KELMO_RECORDER_DIR names.

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

int main(int argc, char **argv)
{
    const char *const folder = std::getenv("KELMO_RECORDER_DIR");
    if (!folder)
        return 1;
    char *const here = getcwd(nullptr, 0);
    std::string record = here ? here : "";
    record += '\0';
    std::free(here);
    for (int i = 1; i < argc; ++i) {
        record += argv[i];
        record += '\0';
    }
    // Under its name only when it is whole.
    const std::string name = std::string(folder) + '/' + std::to_string(getpid());
    std::FILE *const file = std::fopen((name + ".part").c_str(), "wb");
    if (!file)
        return 1;
    const bool written = std::fwrite(record.data(), 1, record.size(), file) == record.size();
    if (std::fclose(file) != 0 || !written)
        return 1;
    return std::rename((name + ".part").c_str(), (name + ".launch").c_str()) == 0 ? 0 : 1;
}
