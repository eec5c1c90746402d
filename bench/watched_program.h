// A program that is started and watched from outside: its processor time and its memory.
#pragma once

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

class Program {
public:
    explicit Program(std::vector<std::string> command) : m_pid(fork())
    {
        if (m_pid != 0)
            return;
        // It ends with who watches, however that ends.
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        std::vector<char *> words;
        for (std::string &word : command)
            words.push_back(word.data());
        words.push_back(nullptr);
        execv(words.front(), words.data());
        _exit(127);
    }
    ~Program()
    {
        kill(m_pid, SIGTERM);
        waitpid(m_pid, nullptr, 0);
    }
    Program(const Program &) = delete;
    Program &operator=(const Program &) = delete;

    // Of all its threads, in milliseconds.
    double ProcessorTime() const
    {
        double nanoseconds = 0;
        const std::string tasks = Folder() + "task/";
        DIR *folder = opendir(tasks.c_str());
        while (const dirent *entry = folder == nullptr ? nullptr : readdir(folder)) {
            if (entry->d_name[0] == '.') // ".." has the first thread's time once more
                continue;
            double own = 0;
            std::ifstream(tasks + entry->d_name + "/schedstat") >> own;
            nanoseconds += own;
        }
        if (folder != nullptr)
            closedir(folder);
        return nanoseconds / 1e6;
    }

    double ResidentMebibytes() const
    {
        long pages = 0;
        std::ifstream(Folder() + "statm") >> pages >> pages;
        return static_cast<double>(pages) * static_cast<double>(sysconf(_SC_PAGESIZE)) / 0x100000;
    }

    bool Runs() const { return waitpid(m_pid, nullptr, WNOHANG) == 0; }

private:
    std::string Folder() const { return "/proc/" + std::to_string(m_pid) + "/"; }

    pid_t m_pid;
};
