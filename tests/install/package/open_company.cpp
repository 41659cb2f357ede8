// A program outside the tree on the installed company library: what is no company is refused, in Persian.
#include <cstdio>

#include "company/company.h"
#include "host/data/connection.h"

int main(int, char** arguments) {
  try {
    goods::OpenCompany(arguments[1]);
    std::puts("opened");
  } catch (const goods::CompanyError& error) {
    std::puts(error.what());
  }
}
