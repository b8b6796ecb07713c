// The applications of the package tree.
#pragma once

#include "catalogue/AppCatalogue.h"
#include "catalogue/CatalogueSource.h"

// Appends what is always installed, then what is offered, then what is offered on systems that it names.
void ScanApplications(const CatalogueSource& source, AppCatalogue& applications);
