#include "platform/vxui/host_interfaces.h"

VXUICairnSheet::~VXUICairnSheet() = default;

void SheetFactory::Unused1() {}
void SheetFactory::Unused2() {}
void SheetFactory::Unused3() {}
void SheetFactory::Unused4() {}
void SheetFactory::Unused5() {}

void DrawingSupplierSource::Unused0() {}
void DrawingSupplierSource::Unused1() {}
void DrawingSupplierSource::Unused2() {}
