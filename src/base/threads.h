// Threads of the system, of which there may be too few.
#pragma once

#include <functional>
#include <thread>

// Runs `work` in a thread of its own. Returns false if the system starts no more.
bool startThread(std::thread &thread, const std::function<void()> &work);
