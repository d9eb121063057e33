// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Test bench: the counter wraps after LIMIT enabled clocks, stands still while
// it is not enabled, and starts again at 0 after a reset.
`timescale 1ns / 1ps

module counter_tb;

    localparam int LIMIT = 5;

    logic       clk = 1'b0;
    logic       rst_n = 1'b0;
    logic       enable = 1'b0;
    logic [2:0] count;
    logic       wrapped;
    int         errors = 0;

    counter #(
        .LIMIT(LIMIT)
    ) dut (
        .clk    (clk),
        .rst_n  (rst_n),
        .enable (enable),
        .count  (count),
        .wrapped(wrapped)
    );

    always #10 clk = ~clk;

    task automatic step(input int expected_count, input logic expected_wrapped);
        @(posedge clk);
        #1;
        if (int'(count) != expected_count || wrapped !== expected_wrapped) begin
            $display("FAIL at %0t: count %0d (expected %0d), wrapped %b (expected %b)", $time,
                     count, expected_count, wrapped, expected_wrapped);
            errors = errors + 1;
        end
    endtask

    initial begin
        repeat (2) @(negedge clk);
        rst_n  = 1'b1;
        enable = 1'b1;
        for (int i = 1; i < LIMIT; i++)
            step(i, 1'b0);
        step(0, 1'b1);
        step(1, 1'b0);

        @(negedge clk) enable = 1'b0;
        repeat (3) step(1, 1'b0);

        @(negedge clk) rst_n = 1'b0;
        #1;
        if (count != 0) begin
            $display("FAIL: the reset left %0d in the counter", count);
            errors = errors + 1;
        end

        if (errors == 0)
            $display("PASS");
        $finish;
    end

endmodule
