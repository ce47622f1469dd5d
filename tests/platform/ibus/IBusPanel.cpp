#include "IBusPanel.h"

#include "IBusDaemon.h"

#include <gtest/gtest.h>

namespace vanoka::test {

IBusPanel& IBusPanel::shared() {
    static IBusPanel panel;
    return panel;
}

IBusPanel::IBusPanel()
    : service_(ibus_panel_service_new(ibus_bus_get_connection(IBusDaemon::shared().bus()))) {
    connect("update-lookup-table",
            G_CALLBACK(+[](IBusPanelService*, IBusLookupTable* table, gboolean isVisible, gpointer panel) {
                static_cast<IBusPanel*>(panel)->onTable(table, isVisible != FALSE);
            }));
    connect("hide-lookup-table", G_CALLBACK(+[](IBusPanelService*, gpointer panel) {
                Line& line = static_cast<IBusPanel*>(panel)->line_;
                line.rows.clear();
                line.highlighted = 0;
            }));
    connect("update-auxiliary-text",
            G_CALLBACK(+[](IBusPanelService*, IBusText* text, gboolean isVisible, gpointer panel) {
                static_cast<IBusPanel*>(panel)->line_.hint = isVisible ? ibus_text_get_text(text) : "";
            }));
    connect("hide-auxiliary-text", G_CALLBACK(+[](IBusPanelService*, gpointer panel) {
                static_cast<IBusPanel*>(panel)->line_.hint.clear();
            }));
    connect("set-cursor-location",
            G_CALLBACK(+[](IBusPanelService*, gint x, gint y, gint width, gint height, gpointer panel) {
                static_cast<IBusPanel*>(panel)->onPlace(x, y, width, height);
            }));
    EXPECT_EQ(ibus_bus_request_name(IBusDaemon::shared().bus(), IBUS_SERVICE_PANEL, 0),
              guint32(IBUS_BUS_REQUEST_NAME_REPLY_PRIMARY_OWNER));
}

IBusPanel::~IBusPanel() {
    g_signal_handlers_disconnect_by_data(service_, this);
    g_object_unref(service_);
}

void IBusPanel::click(std::size_t row) {
    constexpr guint leftButton = 1;
    ibus_panel_service_candidate_clicked(service_, static_cast<guint>(row), leftButton, 0);
}

void IBusPanel::arrowDown() {
    ibus_panel_service_cursor_down(service_);
}

void IBusPanel::arrowUp() {
    ibus_panel_service_page_up(service_);
}

void IBusPanel::connect(const char* signal, GCallback callback) {
    g_signal_connect(service_, signal, callback, this);
}

void IBusPanel::onPlace(gint x, gint y, gint width, gint height) {
    place_ = {x, y, width, height};
}

void IBusPanel::onTable(IBusLookupTable* table, bool isVisible) {
    line_.rows.clear();
    line_.highlighted = ibus_lookup_table_get_cursor_pos(table);
    orientation_ = ibus_lookup_table_get_orientation(table);
    const guint rows = isVisible ? ibus_lookup_table_get_number_of_candidates(table) : 0;
    for (guint row = 0; row < rows; ++row) {
        line_.rows.emplace_back(ibus_text_get_text(ibus_lookup_table_get_candidate(table, row)));
        EXPECT_STREQ(ibus_text_get_text(ibus_lookup_table_get_label(table, row)), " ")
            << "digits stay digits";
    }
    if (isVisible) {
        EXPECT_TRUE(ibus_lookup_table_is_cursor_visible(table));
        EXPECT_GE(ibus_lookup_table_get_page_size(table), rows) << "one page";
    }
}

} // namespace vanoka::test
