// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Counts from 0 to LIMIT - 1 and starts again; `wrapped` is high for the one
// cycle that follows the last count.
module counter #(
    parameter int LIMIT = 16,
    parameter int WIDTH = (LIMIT > 1) ? $clog2(LIMIT) : 1
) (
    input  logic             clk,
    input  logic             rst_n,
    input  logic             enable,
    output logic [WIDTH-1:0] count,
    output logic             wrapped
);

    localparam logic [WIDTH-1:0] LAST = WIDTH'(LIMIT - 1);

    always_ff @(posedge clk or negedge rst_n) begin
        if (!rst_n) begin
            count   <= '0;
            wrapped <= 1'b0;
        end else begin
            wrapped <= enable && (count == LAST);
            if (enable)
                count <= (count == LAST) ? '0 : count + 1'b1;
        end
    end

endmodule
