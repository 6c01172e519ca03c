#pragma once
// CTradeSpinBox: the price or quantity field of an order ticket.
//
// A line edit whose text is the value, with two small step buttons that show while the
// mouse is over the field and an optional unit label at its right end. Stepping is in
// units of a Json::Number, so a step of 0.01 prints two decimals. The client steps the
// value on UpButtonClicked / DownButtonClicked, or switches on the built-in stepping and
// range correction with UseDefaultSignals(true). The mouse wheel does nothing here.
//
// Style sheet: the field is "TradeSpinBox", its buttons "SpinBoxUpButton" and
// "SpinBoxDownButton" with the dynamic property "state" = "hover" or "", and the unit
// label "Trade_Minimum_Unit".

#include "foundation/json_number.h"
#include "foundation/kelvocontrol_export.h"

#include "uilib/line_edit.h"

// Complete, so that clients can connect to the focus signals without more includes.
#include <QFocusEvent>

class THBoxLayout;
class TVBoxLayout;
class TPushButton;
class TLabel;

class KELVOCONTROL_EXPORT CTradeSpinBox : public TLineEdit
{
    Q_OBJECT
public:
    CTradeSpinBox(float scale, QWidget *parent);

    void SetStep(Json::Number const &step);
    Json::Number GetStep();

    // Stored as given; neither checked nor applied to the text until a default step or
    // focus-out correction runs.
    void SetValueRange(double minimum, double maximum);
    void GetValueRange(double &minimum, double &maximum);

    void SetEmptyEnable(bool enable);
    bool IsEmptyEnable() const;

    // The unit shows only when it is both enabled and wanted visible.
    void SetUnitEnable(bool enable);
    bool IsUnitEnable() const;
    void SetUnitVisible(bool visible);
    // Whether the unit label really is visible (false before the field is shown).
    bool GetUnitVisible() const;
    void SetUnitText(QString const &text);
    QString GetUnitText();

    void SetUpButtonToolTip(QString const &tip);
    void SetDownButtonToolTip(QString const &tip);
    QString GetUpButtonToolTip() const;
    QString GetDownButtonToolTip() const;
    bool IsUpButtonEnable() const;
    bool IsDwonButtonEnable() const;

    // Whether the field has the focus.
    bool IsActived() const;

    // With true, the field steps by itself within its range and tidies its text when
    // the focus leaves; with false, that is left to the client again.
    void UseDefaultSignals(bool use);

signals:
    void UpButtonClicked();
    void DownButtonClicked();
    void FocusOutEvent(QFocusEvent *e);
    void FocusInEvent(QFocusEvent *e);

private slots:
    void OnUpButton();
    void OnDownButton();
    void OnFocusOut();

protected:
    bool event(QEvent *e) override;
    bool eventFilter(QObject *watched, QEvent *e) override;
    void focusInEvent(QFocusEvent *e) override;
    void focusOutEvent(QFocusEvent *e) override;
    void enterEvent(QEvent *e) override;
    void leaveEvent(QEvent *e) override;

private:
    void InitWidget();
    TPushButton *MakeStepButton(char const *objectName);
    void OnStepButtonClicked(TPushButton *button);
    void EmitStep(TPushButton *button);
    void UpdateUnitLabel();
    void SetButtonState(TPushButton *button, QString const &state);
    void ShowValue(double value);

    bool m_unitEnable = true;
    bool m_unitVisible = false;
    bool m_emptyEnable = false;
    Json::Number m_step;
    THBoxLayout *m_mainLayout = nullptr;
    TVBoxLayout *m_buttonLayout = nullptr;
    TPushButton *m_upButton = nullptr;
    TPushButton *m_downButton = nullptr;
    TLabel *m_unitLabel = nullptr;
    bool m_mouseHeld = false;
    double m_maximum = 0.5;
    double m_minimum = 0.01;
    bool m_active = false;
};
