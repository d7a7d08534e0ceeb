#include "cli/CommandLine.h"

#include <iostream>

int main(int argc, char** argv)
{
    return TLGateway::RunCommandLine(argc, argv, std::cin, std::cout);
}
