// make_transformations SOURCE DATABASE: makes the database of datum transformations from its text.

#include <iostream>

#include "platform_choice.h"
#include "transformation_source.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "Usage: make_transformations SOURCE DATABASE\n";
        return 2;
    }
    try {
        const std::filesystem::path database = std::filesystem::absolute(argv[2]);
        const tavoru::Drive drive = tavoru::openDrive(database.parent_path());
        tavoru::makeTransformations(argv[1], drive.platform, drive.root + database.filename().string());
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "make_transformations: " << error.what() << '\n';
        return 1;
    }
}
