#include "ui/CZelorGasApp.h"

int main(int argc, char** argv) { return zelorgas::CZelorGasApp(argc, argv).Run(); }
