#include <benchmark/benchmark.h>

#include <fstream>
#include <sstream>
#include <string>

namespace {

// The processor's name and its vector extensions head every benchmark
// report: the figures depend on them (AVX-512 processors slow down plain SSE
// code while the upper vector state is left dirty).
std::string CpuInfoField(const std::string& key) {
  std::ifstream cpuinfo("/proc/cpuinfo");
  for (std::string line; std::getline(cpuinfo, line);) {
    if (line.rfind(key, 0) == 0 && line.find(':') != std::string::npos) return line.substr(line.find(':') + 2);
  }
  return "unknown";
}

std::string VectorFlags() {
  std::istringstream flags(CpuInfoField("flags"));
  std::string kept;
  for (std::string flag; flags >> flag;) {
    if (flag.rfind("sse", 0) == 0 || flag.rfind("avx", 0) == 0 || flag == "fma") kept += (kept.empty() ? "" : " ") + flag;
  }
  return kept;
}

const bool kAdded = [] {
  benchmark::AddCustomContext("processor", CpuInfoField("model name"));
  benchmark::AddCustomContext("vector_flags", VectorFlags());
  return true;
}();

}  // namespace
