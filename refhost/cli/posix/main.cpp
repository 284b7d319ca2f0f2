#include <string>
#include <vector>

#include "refhost/cli/Commands.h"

int main(int argc, char** argv) {
    return refhost::RunCommandLine(std::vector<std::string>(argv + 1, argv + argc));
}
