#include "tests/tour/pages.h"
#include "tests/tour/settings.h"
#include "tests/tour/stages.h"
#include "tests/tour/start.h"

namespace {

const char first_address[] = "127.0.0.2";
const char second_address[] = "127.0.0.3";

void copy_over_adapter(Visitor& visitor, const QString& settings_file) {
    visitor.click("pushButton_Connection_Settings");
    take_network_road(visitor, second_address);
    see_factory_settings(visitor);
    load_and_compare(visitor, settings_file);
    visitor.tell("the second unit's report, asked for anew, fills the pages with what was saved");
}

} // namespace

void take_plus_adapter_tour(Visitor& visitor, const QString& settings_file) {
    pick_model(visitor, "radioButton_PLUS");
    take_network_road(visitor, first_address);
    change_everything(visitor);
    save_settings(visitor, settings_file, 24);
    copy_over_adapter(visitor, settings_file);
}

void take_pro_adapter_tour(Visitor& visitor, const QString& settings_file) {
    pick_model(visitor, "radioButton_PRO");
    take_network_road(visitor, first_address);
    change_everything(visitor);
    change_audio(visitor);
    save_settings(visitor, settings_file, 26);
    copy_over_adapter(visitor, settings_file);
    see_changed_audio(visitor);
}
