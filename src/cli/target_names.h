// The names of the pictures that a batch writes.
#pragma once

#include "cli/inputs.h"

#include <map>
#include <mutex>
#include <span>
#include <string>
#include <vector>

// For each input the path of its pictures without the number of a video's frame and the extension. It depends only on
// the request and its inputs: beside the input or in the request's folder, the input's name; with its extension,
// "CASTLE.SC5", if another input would take that name or has it; and numbered from "CASTLE.SC5 (2)" on if that is
// taken, too. Empty for an input that Korilan does not open.
std::vector<std::string> nameTargets(const CliRequest &request, std::span<const CliInput> inputs);

// The files that a batch reads and those that it has written, by fileIdentity(), each with the input that it is or is
// from: links and file systems can make one file of two names. All threads share it.
struct Targets {
  struct Holder {
    std::string input;
    bool written;
  };
  std::map<std::string, Holder> holders;
  std::mutex mutex;
};

void keepInputs(Targets &targets, const CliRequest &request, std::span<const CliInput> inputs);

// Takes a target for a picture of an input. Returns why that cannot be, or an empty text.
std::string takeTarget(Targets &targets, const std::string &target, const std::string &input);

// The target exists now, and may be known by another identity.
void keepTarget(Targets &targets, const std::string &target, const std::string &input);
