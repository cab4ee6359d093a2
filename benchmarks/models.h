// SPDX-License-Identifier: MIT

#pragma once

#include "benchmarks/row.h"
#include "sim/switch_state.h"
#include "ui_corvane_lite_ui.h"
#include "ui_corvane_pro_ui.h"
#include "ui_corvane_ui.h"

#include <QString>
#include <QStringList>

#include <type_traits>

/// The models by the captions of their radio buttons.
inline const QStringList all_models = {"Lite", "Plus", "Pro"};

inline Switch_Model switch_model(const QString& model) {
    if (model == "Lite") {
        return Switch_Model::lite;
    }
    return model == "Plus" ? Switch_Model::plus : Switch_Model::pro;
}

/// Calls `use` with std::type_identity of the class of the model's form.
template <class Use>
auto with_form_of(const QString& model, Use use) {
    if (model == "Lite") {
        return use(std::type_identity<Ui::Corvane_LITE_UI>{});
    }
    if (model == "Plus") {
        return use(std::type_identity<Ui::Corvane_UI>{});
    }
    return use(std::type_identity<Ui::Corvane_PRO_UI>{});
}

/// The rows of one benchmark for each model.
/// @param take gets the model's name, and std::type_identity of its form's class if it takes it.
template <class Take>
Rows rows_of_all_models(Take take) {
    Rows rows;
    for (const QString& model : all_models) {
        if constexpr (std::is_invocable_v<Take, QString>) {
            rows += take(model);
        } else {
            rows += with_form_of(model, [&](auto form) { return take(model, form); });
        }
    }
    return rows;
}
